#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace platform {

/// The text of a file of ini kind, changed line by line: what no operation touches keeps every byte, line
/// ends, blanks and a byte order mark included.
///
/// A line "[NAME]" opens a section, a line "KEY=VALUE" in it is an entry. Lines that begin with ";", lines
/// without "=" and whatever stands before the first section are neither and stay. Names are compared without
/// the case of ASCII letters; of several sections of one name, and of several entries of one key, the first
/// counts. Blanks around names and values do not belong to them, nor does one pair of quotes, single or
/// double, around a value.
class ProfileDocument {
public:
    /// @param valueLimit the most bytes of a value that are read; a longer one is cut before the character
    ///                   that does not fit.
    explicit ProfileDocument(std::string_view text = {},
                             std::size_t valueLimit = std::numeric_limits<std::size_t>::max());

    std::string text() const;

    /// The names of the sections, and the keys of one, as they are spelled, in the order of the text.
    std::vector<std::string> sectionNames() const;
    std::vector<std::string> keys(std::string_view section) const;

    /// The value of an entry; nothing if there is no such entry.
    std::optional<std::string> value(std::string_view section, std::string_view key) const;

    /// Gives an entry a value, or deletes it if there is none. An entry that reads as this value already
    /// stays as it is spelled, so that writing back what was read, even cut, loses nothing. A new entry comes
    /// behind the last one of its section, a new section to the end. A value whose blanks or quotes would not
    /// be read again is put in quotes.
    /// @return false, with nothing changed, for names and values that such a text cannot hold: line breaks,
    ///         null characters, empty names, a "]" in a section, a "=" in a key or a ";" or "[" at its start.
    bool set(std::string_view section, std::string_view key, std::optional<std::string_view> value);

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const;
    };
    struct Equal {
        using is_transparent = void;
        bool operator()(std::string_view one, std::string_view other) const;
    };
    template <typename Value>
    using ByName = std::unordered_map<std::string, Value, Hash, Equal>;

    struct Section {
        std::string name;
        std::vector<std::string> lines; ///< with their line ends; an empty one was deleted
        ByName<std::vector<std::size_t>> entries;
        std::size_t end = 0; ///< index behind the last entry or, without any, the header
    };

    const Section* find(std::string_view name) const;
    Section& findOrAdd(std::string_view name);
    void addLine(std::string_view line);
    std::string readValue(std::string_view line) const;
    std::string newLine(std::string_view content) const;
    void completeLine(std::string& line) const;
    void append(Section& section, std::string_view key, std::string_view value);
    void replace(std::string& line, std::string_view value) const;

    std::size_t valueLimit_;
    std::string_view byteOrderMark_;
    std::string_view lineEnd_ = "\n";
    std::vector<Section> sections_{1}; ///< the first has no name: what stands before all sections
    ByName<std::size_t> index_;
};

} // namespace platform
