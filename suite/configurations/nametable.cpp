#include "suite/configurations/nametable.h"

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

std::uint32_t hashOf(const NameTable::Name& name) {
    const std::uint64_t key = secret();
    const std::uint64_t hash = hashOf(name.key, hashOf(name.type, mixed(name.scope + key, key), key), key);
    return static_cast<std::uint32_t>(hash >> 32 ^ hash);
}

} // namespace

NameTable::NameTable(std::size_t expected) : slots_(std::bit_ceil(2 * std::max(expected, kFewest))) {
    names_.reserve(expected);
}

NameTable::Inserted NameTable::insert(const Name& name) {
    if (2 * (names_.size() + 1) > slots_.size())
        grow();
    const std::uint32_t hash = hashOf(name);
    Slot& slot = slots_[slotOf(name, hash)];
    if (slot.number != 0)
        return {slot.number, false};
    names_.push_back(name);
    slot = {static_cast<std::uint32_t>(names_.size()), hash};
    return {slot.number, true};
}

std::uint32_t NameTable::find(const Name& name) const {
    return slots_[slotOf(name, hashOf(name))].number;
}

std::size_t NameTable::slotOf(const Name& name, std::uint32_t hash) const {
    std::size_t at = hash & (slots_.size() - 1);
    while (slots_[at].number != 0 && (slots_[at].hash != hash || names_[slots_[at].number - 1] != name))
        at = (at + 1) & (slots_.size() - 1);
    return at;
}

void NameTable::grow() {
    std::vector<Slot> old(2 * slots_.size());
    old.swap(slots_);
    for (const Slot& slot : old) {
        if (slot.number == 0)
            continue;
        std::size_t at = slot.hash & (slots_.size() - 1);
        while (slots_[at].number != 0)
            at = (at + 1) & (slots_.size() - 1);
        slots_[at] = slot;
    }
}

} // namespace suite
