#pragma once

#include "platform/xmltree.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace suite {

/// What a section or an entry is known by.
struct EntryName {
    std::uint32_t scope;   ///< of an entry, the place of the first section of that path; of a section, 0
    std::string_view type; ///< of a group; empty for all else
    std::string_view key;  ///< of a section its path, without a slash at its end
};

/// The sections and entries of a tree by their names. It holds places in the tree only, so that it serves as
/// long as these do.
class EntryIndex {
public:
    struct Found {
        std::uint32_t first =
            0; ///< the place of the first element of a name; 0, that of the root, if there is none
        std::uint32_t last = 0; ///< that of the last
    };

    /// @param expected how many names there may be; any number fits in.
    explicit EntryIndex(std::size_t expected);

    /// What has that name, for the caller to fill in where there is none so far.
    Found& at(const platform::XmlTree& tree, const EntryName& name);
    Found find(const platform::XmlTree& tree, const EntryName& name) const;

private:
    struct Slot {
        Found found;
        std::uint32_t scope = 0;
        std::uint32_t hash = 0;
    };

    std::size_t slotOf(const platform::XmlTree& tree, const EntryName& name, std::uint32_t hash) const;
    void grow();

    std::vector<Slot> slots_; ///< as many as a power of two
    std::size_t used_ = 0;
};

/// The attribute of that name; empty if there is none.
std::string_view nameIn(const platform::XmlNode& element);
/// The type of a group; empty for all else.
std::string_view typeOf(const platform::XmlNode& element);
/// The path of a section, as sectionPath() has it.
std::string_view pathOf(const platform::XmlNode& section);
/// Drops the slashes at the end of a section path, which mean nothing.
std::string_view sectionPath(std::string_view path);

} // namespace suite
