#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace suite {

/// The soft names of a project: those of the file "location.map" in the project's directory, then of those in
/// the working directories. The first definition of a name counts.
class LocationMap {
public:
    /// @param project path of a project file or of its directory; empty means the working directories only.
    static LocationMap ofProject(std::string_view project);

    /// Adds the definitions of a text, as if it were the file of a directory.
    /// @return the first line, from 1, that is passed over because it is no definition, or 0.
    int add(std::string_view text, const std::string& directory);

    /// The project's directory; empty without a project.
    const std::string& directory() const { return directory_; }

    static bool isSoftName(std::string_view text) { return text.starts_with('$'); }

    /// The real path that a text with a soft name at its beginning stands for, or nothing if a name on the
    /// way has no mapping or names lead in a circle. The case of names counts. Whoever reads a soft name,
    /// reads it by this: what a page accepts is what the project finds.
    std::optional<std::string> hardName(std::string_view text) const;

    /// The path with the name of the longest mapped directory above it, compared by components, or nothing.
    std::optional<std::string> softName(std::string_view path) const;

    /// The full path of a file that a project names: environment references and soft names are resolved, and
    /// a relative path begins at the project's directory. What cannot be resolved stays in the text.
    std::string fullPath(std::string_view text) const;
    /// As fullPath, of a text whose environment references are resolved already.
    std::string fullPathOfExpanded(std::string path) const;

private:
    struct Entry {
        std::string name; ///< without "$"
        std::string value;
        std::string base; ///< where a relative value begins
    };

    void addFile(const std::string& directory);
    bool addLine(std::string_view line, const std::string& directory);
    const Entry* find(const std::string& name) const;

    std::string directory_;
    std::vector<Entry> entries_;
    std::unordered_map<std::string, std::size_t> index_; ///< of the entries, by name
};

} // namespace suite
