#include "suite/configurations/entryindex.h"

#include "platform/trim.h"
#include "suite/configurations/documentwords.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <random>

namespace suite {

namespace {

constexpr std::size_t kFewest = 16;

/// Nobody outside of the process can make names that share a hash: a file of such would keep us busy for
/// hours.
std::uint64_t secret() {
    static const std::uint64_t value = [] {
        std::random_device device;
        return (std::uint64_t{device()} << 32 | device()) | 1;
    }();
    return value;
}

std::uint64_t mixed(std::uint64_t a, std::uint64_t b) {
    __extension__ using Wide = unsigned __int128;
    const Wide product = static_cast<Wide>(a) * b;
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

std::uint64_t hashOf(std::string_view text, std::uint64_t hash, std::uint64_t key) {
    constexpr std::uint64_t kOdd = 0x9e3779b97f4a7c15;
    hash ^= text.size();
    while (!text.empty()) {
        std::uint64_t word = 0;
        const std::size_t taken = std::min(text.size(), sizeof word);
        std::memcpy(&word, text.data(), taken);
        hash = mixed(hash ^ word ^ kOdd, key ^ hash);
        text.remove_prefix(taken);
    }
    return mixed(hash ^ kOdd, key);
}

std::uint32_t hashOf(const EntryName& name) {
    const std::uint64_t key = secret();
    const std::uint64_t hash = hashOf(name.key, hashOf(name.type, mixed(name.scope + key, key), key), key);
    return static_cast<std::uint32_t>(hash >> 32 ^ hash);
}

bool isNamed(const platform::XmlNode& element, const EntryName& name) {
    if (name.scope == 0)
        return pathOf(element) == name.key;
    return nameIn(element) == name.key && typeOf(element) == name.type;
}

} // namespace

std::string_view nameIn(const platform::XmlNode& element) {
    return element.attribute(words::kName).value_or(std::string_view());
}

std::string_view typeOf(const platform::XmlNode& element) {
    return element.name() == words::kGroup ? element.attribute(words::kType).value_or(std::string_view())
                                           : std::string_view();
}

std::string_view pathOf(const platform::XmlNode& section) {
    return sectionPath(section.attribute(words::kPath).value_or(std::string_view()));
}

std::string_view sectionPath(std::string_view path) {
    return platform::trimEnd(path, "/");
}

EntryIndex::EntryIndex(std::size_t expected) : slots_(std::bit_ceil(2 * std::max(expected, kFewest))) {
}

EntryIndex::Found& EntryIndex::at(const platform::XmlTree& tree, const EntryName& name) {
    if (2 * (used_ + 1) > slots_.size())
        grow();
    const std::uint32_t hash = hashOf(name);
    Slot& slot = slots_[slotOf(tree, name, hash)];
    if (slot.found.first == 0) {
        slot.scope = name.scope;
        slot.hash = hash;
        ++used_;
    }
    return slot.found;
}

EntryIndex::Found EntryIndex::find(const platform::XmlTree& tree, const EntryName& name) const {
    return slots_[slotOf(tree, name, hashOf(name))].found;
}

std::size_t EntryIndex::slotOf(const platform::XmlTree& tree, const EntryName& name,
                               std::uint32_t hash) const {
    const auto isOther = [&](const Slot& slot) {
        return slot.hash != hash || slot.scope != name.scope || !isNamed(tree.node(slot.found.first), name);
    };
    std::size_t at = hash & (slots_.size() - 1);
    while (slots_[at].found.first != 0 && isOther(slots_[at]))
        at = (at + 1) & (slots_.size() - 1);
    return at;
}

void EntryIndex::grow() {
    std::vector<Slot> old(2 * slots_.size());
    old.swap(slots_);
    for (const Slot& slot : old) {
        if (slot.found.first == 0)
            continue;
        std::size_t at = slot.hash & (slots_.size() - 1);
        while (slots_[at].found.first != 0)
            at = (at + 1) & (slots_.size() - 1);
        slots_[at] = slot;
    }
}

} // namespace suite
