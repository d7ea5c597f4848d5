#pragma once

#include "store/level.h"
#include "store/record.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace Orv {

/// The rows of a loaded store. Only a row that a program changes has a record of its own; what any other one
/// says is laid together from the levels when somebody asks, over the catalogue's own words.
class Records {
public:
    /// Forgets all that it held. The catalogue's rows are there from then on.
    void restart();
    /// False before the first restart, when there is no row.
    bool isEmpty() const { return own_.empty(); }
    std::size_t size() const { return own_.size(); }

    /// As last read, in the order of the directories; origins refer to them. Rows without a record of their
    /// own say what these do.
    const std::vector<Level>& levels() const { return levels_; }
    std::vector<Level> exchangeLevels(std::vector<Level> levels);
    /// Takes over what the user's level says by now of a row that has a record of its own.
    void replaceStatement(std::size_t row, std::optional<Statement> statement);

    /// Good until the next call for another row without a record of its own.
    Record& look(std::size_t row);

    bool isOwn(std::size_t row) const { return own_[row] != nullptr; }
    Record& own(std::size_t row);
    /// Takes the levels' word for a row.
    void disown(std::size_t row);
    /// Whether setPropertyDefaults was called for a row since the load.
    bool hasOwnDefaults(std::size_t row) const { return isOwn(row) && own_[row]->hasOwnDefaults; }

private:
    std::vector<Level> levels_;
    std::vector<std::unique_ptr<Record>> own_;
    Record seen_; ///< of the row that was looked at last
    std::optional<std::size_t> seenRow_;
};

} // namespace Orv
