#pragma once

#include "orv/locknote.h"
#include "suite/configuration.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace Orv {

/// What one configuration says of one property.
struct Statement {
    std::size_t row = 0;                                ///< of the catalogue
    std::vector<std::optional<std::string>> texts = {}; ///< by field; of a list or value each item has one
    std::vector<std::uint8_t> locks = {}; ///< as long as `texts`; what a lock of the whole locks, too
    std::vector<LockNote> notes = {};     ///< of the locks, by field; may be shorter than `texts`

    void note(std::size_t field, LockNote words);
    bool operator==(const Statement&) const = default;
};

/// What the configuration of one working directory says of the properties of the catalogue.
struct Level {
    std::string directory;
    bool isKnown = false;              ///< false while the directory has yielded no configuration
    std::vector<Statement> statements; ///< ascending by row; of those properties that it mentions

    const Statement* find(std::size_t row) const;
    /// Takes over what is said of a row by now, nothing included.
    void replace(std::size_t row, std::optional<Statement> statement);
};

/// Reads what a configuration says of one property.
class StatementReader {
public:
    explicit StatementReader(const IOvConfiguration& configuration) : configuration_(configuration) {}

    /// @return nothing where the configuration does not mention the property.
    std::optional<Statement> read(std::size_t row);

private:
    std::optional<Statement> readList(std::size_t row);
    std::optional<Statement> readGroup(std::size_t row);

    const IOvConfiguration& configuration_;

    // What the configuration answered last, kept for the memory they hold.
    std::vector<std::string> values_;
    std::vector<std::uint8_t> locks_;
    std::map<std::string, std::string> attributes_;
    std::map<std::string, int> attributeLocks_;
};

/// Reads a whole level. @return nothing where the directory yields no configuration.
std::optional<Level> readLevel(const std::string& directory);

} // namespace Orv
