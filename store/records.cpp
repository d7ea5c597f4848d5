#include "store/records.h"

#include "store/catalogue.h"
#include "store/overlay.h"

#include <utility>

namespace Orv {

void Records::restart() {
    levels_.clear();
    own_.clear();
    own_.resize(catalogue().size());
    seenRow_.reset();
}

std::vector<Level> Records::exchangeLevels(std::vector<Level> levels) {
    seenRow_.reset();
    return std::exchange(levels_, std::move(levels));
}

void Records::replaceStatement(std::size_t row, std::optional<Statement> statement) {
    own(row);
    levels_.front().replace(row, std::move(statement));
}

Record& Records::look(std::size_t row) {
    if (own_[row])
        return *own_[row];
    if (seenRow_ != row) {
        layRecord(row, levels_, 0, seen_);
        seenRow_ = row;
    }
    return seen_;
}

Record& Records::own(std::size_t row) {
    if (!own_[row])
        own_[row] = std::make_unique<Record>(look(row));
    return *own_[row];
}

void Records::disown(std::size_t row) {
    own_[row].reset();
    seenRow_.reset();
}

} // namespace Orv
