#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace platform {

// The grammar of files of ini kind, which ProfileDocument tells of.

inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// The name that a line opens a section with, or nothing.
std::optional<std::string_view> profileHeader(std::string_view line);
/// The key of a line that is an entry, or nothing.
std::optional<std::string_view> profileKey(std::string_view line);
/// What a text behind the "=" of an entry stands for.
std::string_view profileValue(std::string_view written);
/// Takes the first line, its end included, off a text that is not empty.
std::string_view takeLine(std::string_view& text);

/// A text of ini kind for reading from one end to the other, in a fraction of the time of a ProfileDocument.
class ProfileView {
public:
    struct Entry {
        std::string_view key;
        std::string_view value;
    };
    struct Section {
        std::string_view name;
        std::vector<Entry> entries; ///< of several with one key the first counts
    };

    /// @param text must outlive this object: every name and value is a part of it.
    explicit ProfileView(std::string_view text);

    /// All sections in the order of the text; of several with one name the first counts.
    std::span<const Section> sections() const { return sections_; }
    /// The entries of a section in the order of the text; none if there is no such section.
    std::span<const Entry> entries(std::string_view section) const;
    /// The value of an entry, empty if there is none. The section is searched from its beginning.
    std::string_view value(std::string_view section, std::string_view key) const;

private:
    std::vector<Section> sections_;
    std::unordered_map<std::string, std::size_t> index_; ///< of the sections, by name in lower case
};

} // namespace platform
