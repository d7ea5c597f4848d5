#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace suite {

/// Numbers for names, each in a scope: the sections of a file, the entries of a section, the attributes of a
/// group. Names are views that the caller keeps.
class NameTable {
public:
    struct Name {
        std::uint32_t scope; ///< the number of what the name is in; 0 for the file
        std::string_view type;
        std::string_view key;

        bool operator==(const Name&) const = default;
    };

    /// @param expected how many names there may be; any number fits in.
    explicit NameTable(std::size_t expected);

    /// The numbers of a table go from 1 up, by the order of the first insertions.
    struct Inserted {
        std::uint32_t number;
        bool isNew;
    };
    Inserted insert(const Name& name);
    /// 0 if there is none.
    std::uint32_t find(const Name& name) const;

private:
    struct Slot {
        std::uint32_t number = 0; ///< 0 if it is free
        std::uint32_t hash = 0;
    };

    std::size_t slotOf(const Name& name, std::uint32_t hash) const;
    void grow();

    std::vector<Slot> slots_; ///< as many as a power of two
    std::vector<Name> names_;
};

} // namespace suite
