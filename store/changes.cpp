#include "store/changes.h"

#include <algorithm>
#include <utility>

namespace Orv {

void Changes::restart(std::size_t rows) {
    changes_.clear();
    redundant_.assign(rows, false);
    settled_.assign(rows, false);
    isSearched_ = false;
}

const Change* Changes::find(std::size_t row) const {
    const auto known = changes_.find(row);
    return known == changes_.end() ? nullptr : &known->second;
}

Change& Changes::begin(std::size_t row, const std::vector<std::string>& values) {
    return changes_.try_emplace(row, Change{values}).first->second;
}

void Changes::keepFields(std::size_t row, std::uint8_t bits) {
    if (const auto known = changes_.find(row); known != changes_.end())
        known->second.withdrawn &= static_cast<std::uint8_t>(~bits);
}

bool Changes::isToBeSearched() {
    return !std::exchange(isSearched_, true);
}

bool Changes::isAnyPending() const {
    return !changes_.empty() || std::ranges::find(redundant_, true) != redundant_.end();
}

std::vector<std::size_t> Changes::pendingRows() const {
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < redundant_.size(); ++row) {
        if (redundant_[row] || changes_.contains(row))
            rows.push_back(row);
    }
    return rows;
}

void Changes::settle(std::size_t row) {
    redundant_[row] = false;
    settled_[row] = true;
}

std::vector<bool> Changes::takeSettled() {
    return std::exchange(settled_, std::vector<bool>(settled_.size()));
}

} // namespace Orv
