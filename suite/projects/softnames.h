#pragma once

#include "suite/projects/locationmapfile.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace suite {

/// The soft names of a project: those of the file "location.map" in the project's directory, then of those in
/// the working directories. The first definition of a name counts.
class SoftNames {
public:
    /// @param project path of a project file or of its directory; empty means the working directories only.
    static SoftNames ofProject(std::string_view project);

    /// Adds the definitions of a text, as if it were the file of a directory.
    /// @return the first line, from 1, that is passed over because it is no definition, or 0.
    int add(std::string_view text, const std::string& directory);

    /// The project's directory; empty without a project.
    const std::string& directory() const { return directory_; }

    static bool isSoftName(std::string_view text) { return text.starts_with('$'); }

    /// The real path that a text with a soft name at its beginning stands for, or nothing if a name on the
    /// way has no mapping or names lead in a circle, or the path grows beyond platform::kLongestExpansion.
    /// The case of names counts. Whoever reads a soft name, reads it by this: what a page accepts is what the
    /// project finds.
    ///
    /// The environment references of a location on a server stay in it; a soft name that leads to a server by
    /// the environment alone has no mapping.
    std::optional<std::string> hardName(std::string_view text) const;

    /// The path with the name of the longest mapped directory above it, compared by components, or nothing.
    std::optional<std::string> softName(std::string_view path) const;

    /// What a text stands for: its environment references, then its soft name are resolved. A location on a
    /// server keeps its references, and a text that only they would make one stays. @return as hardName.
    std::optional<std::string> realPath(std::string_view text) const;

    /// The full path of a file that a project names: as realPath, and a relative path begins at the project's
    /// directory. What cannot be resolved stays in the text.
    std::string fullPath(std::string_view text) const;
    /// As fullPath, of a text that realPath gave.
    std::string fullPathOfReal(std::string path) const;

private:
    using File = LocationMapFile;

    struct Definition {
        const File* file = nullptr;
        const File::Entry* entry = nullptr;
    };
    enum class References { expand, keep };

    struct Resolution {
        std::optional<std::string> path = std::nullopt;
        bool isTooLong = false;
    };

    /// @param longest bytes that the path may have.
    Resolution resolve(std::string_view text, References references, std::size_t longest) const;
    /// What a name stands for by itself. @return nothing if it is too long.
    static std::optional<std::string> directoryBehind(const Definition& definition, References references,
                                                      std::size_t longest);
    Definition find(std::string_view name) const;
    /// Tells why a text with a soft name is not resolved.
    void tell(std::string_view text, const std::string& reason) const;
    /// Tells why a text of the project is not resolved.
    void tell(const std::string& reason) const;

    std::string directory_;
    std::vector<std::shared_ptr<const File>> files_; ///< the first one's definition of a name counts
};

} // namespace suite
