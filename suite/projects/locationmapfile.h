#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace suite {

/// The definitions of one file "location.map".
class LocationMapFile {
public:
    /// @param path      of the file, for messages; empty for a text that is in none.
    /// @param directory where the file is found, and where a relative value begins.
    LocationMapFile(std::string text, std::string path, std::string directory);
    LocationMapFile(const LocationMapFile&) = delete;
    LocationMapFile& operator=(const LocationMapFile&) = delete;

    /// The file of a directory, or null if it has none that can be read; then, and where a line is passed
    /// over, the error log is told. A file that is as it was when it was read last is not read anew.
    static std::shared_ptr<const LocationMapFile> of(const std::string& directory);

    struct Entry {
        std::string_view name; ///< without "$"
        std::string_view value;
    };

    const std::string& text() const { return text_; }
    const std::string& path() const { return path_; }
    const std::string& directory() const { return directory_; }
    /// In the order of the file, and each name once.
    std::span<const Entry> entries() const { return entries_; }
    /// The first line, from 1, that is passed over because it is no definition, or 0.
    int firstBadLine() const { return firstBadLine_; }

    /// True for the first complaints: a file may have a million names to complain of, each in a box of its
    /// own.
    bool mayComplain() const { return complaints_.fetch_add(1) < kMostComplaints; }

    /// @return null if there is no such name. Its case counts.
    const Entry* find(std::string_view name) const;

private:
    static constexpr std::uint64_t kMostComplaints = 10;

    bool addLine(std::string_view line);

    std::string text_;
    std::string path_;
    std::string directory_;
    std::vector<Entry> entries_;                              ///< parts of the text
    std::unordered_map<std::string_view, std::size_t> index_; ///< of the entries, by name
    int firstBadLine_ = 0;
    mutable std::atomic<std::uint64_t> complaints_ = 0;
};

} // namespace suite
