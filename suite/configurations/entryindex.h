#pragma once

#include "platform/xmltree.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace suite {

/// What a section or an entry is known by. A section has neither type nor key.
struct EntryName {
    std::string_view path;      ///< of the section, without a slash at its end
    std::string_view type = {}; ///< of a group; empty for values and lists
    std::string_view key = {};
    bool isSection = false;

    bool operator==(const EntryName&) const = default;
};

/// The sections and entries of a tree by their names. It holds places in the tree only, so that it serves as
/// long as these do.
class EntryIndex {
public:
    /// @param expected how many names there may be; any number fits in.
    explicit EntryIndex(std::size_t expected);

    /// The place of what has that name: 0, for the caller to fill in, where there is none so far.
    std::uint32_t& at(const platform::XmlTree& tree, const EntryName& name);
    /// 0 if there is none: that is the root.
    std::uint32_t find(const platform::XmlTree& tree, const EntryName& name) const;

private:
    struct Slot {
        std::uint32_t place = 0; ///< 0 if it is free
        std::uint32_t hash = 0;
    };

    std::size_t slotOf(const platform::XmlTree& tree, const EntryName& name, std::uint32_t hash) const;
    void grow();

    std::vector<Slot> slots_; ///< as many as a power of two
    std::size_t used_ = 0;
};

/// The name of a section or an entry, as it is written.
EntryName nameOf(const platform::XmlNode& element);

/// Drops the slashes at the end of a section path, which mean nothing.
std::string_view sectionPath(std::string_view path);

} // namespace suite
