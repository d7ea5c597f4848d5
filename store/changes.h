#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace Orv {

/// What a program did to a row since the row was loaded, saved or refreshed.
struct Change {
    std::vector<std::string> saved; ///< the values as they were before
    std::uint8_t withdrawn = 0; ///< a bit for each field that was reset and leaves the file at the next save
};

/// What the next save has to look at.
///
/// The rule: a row is changed from the first time that a program touches it until a save has written all of
/// it; unsaved in it is what differs, in normal form, from the values before, and what was reset. A row that
/// nobody changed is redundant where the user's level says what it inherits, and leaves the file as well;
/// that is found out by the first save after a load, since many programs never save. Both are pending. A row
/// that a save has dealt with is settled until the next refresh: its level has what the file then said, its
/// record only what this store changed.
class Changes {
public:
    /// Of this many rows. Nothing is changed, and nobody has looked for what is redundant.
    void restart(std::size_t rows);

    /// Null where the row is not changed.
    const Change* find(std::size_t row) const;
    /// Remembers the values before the first change; has no effect on a row that is changed.
    Change& begin(std::size_t row, const std::vector<std::string>& values);
    void set(std::size_t row, Change change) { changes_.insert_or_assign(row, std::move(change)); }
    void drop(std::size_t row) { changes_.erase(row); }
    void noteReset(std::size_t row, std::uint8_t bits) { changes_[row].withdrawn |= bits; }
    /// A field that gets a value is not reset any more.
    void keepFields(std::size_t row, std::uint8_t bits);

    /// True once after a load, or restart: whoever asks notes what is redundant.
    bool isToBeSearched();
    void noteRedundant(std::size_t row, bool isRedundant) { redundant_[row] = isRedundant; }

    bool isAnyPending() const;
    /// Ascending.
    std::vector<std::size_t> pendingRows() const;

    void settle(std::size_t row);
    /// By row. They are settled no more.
    std::vector<bool> takeSettled();

private:
    std::map<std::size_t, Change> changes_;
    std::vector<bool> redundant_;
    std::vector<bool> settled_;
    bool isSearched_ = false;
};

} // namespace Orv
