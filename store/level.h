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

/// What one configuration says of one field of a property.
struct StatedField {
    std::optional<std::string> text = {}; ///< items and values have one; an attribute may be locked without
    bool isLocked = false;                ///< by a mark of its own or of the whole

    bool operator==(const StatedField&) const = default;
};

/// What one configuration says of one property.
struct Statement {
    std::size_t row = 0;             ///< of the catalogue
    std::vector<StatedField> fields; ///< of a group each that its kind has, of a list each item
    std::vector<LockNote> notes;     ///< of the locks, by field; may be shorter than `fields`

    void note(std::size_t field, LockNote words);
    bool isAnyLocked() const;
    /// The texts of the fields, an empty one where a field has none.
    std::vector<std::string> texts() const;
    bool operator==(const Statement&) const = default;
};

/// What the configuration of one working directory says of the properties of the catalogue.
class Level {
public:
    Level() = default;
    /// Says nothing yet.
    /// @param isKnown  false where the directory has yielded no configuration.
    /// @param revision of the configuration; 0 if it has none.
    Level(std::string directory, bool isKnown, std::uint64_t revision)
        : directory_(std::move(directory)), isKnown_(isKnown), revision_(revision) {}

    const std::string& directory() const { return directory_; }
    bool isKnown() const { return isKnown_; }
    /// Whether it says what a configuration of this revision does.
    bool isOfRevision(std::uint64_t revision) const { return revision != 0 && revision == revision_; }

    /// On those properties that it mentions, in any order.
    const std::vector<Statement>& statements() const { return statements_; }
    const Statement* find(std::size_t row) const;

    /// To be called for a row that it does not mention.
    void add(Statement statement);
    /// Takes over what is said of a row by now, nothing included.
    void replace(std::size_t row, std::optional<Statement> statement);

private:
    std::string directory_;
    bool isKnown_ = false;
    std::uint64_t revision_ = 0;
    std::vector<Statement> statements_;
    std::vector<std::uint16_t> places_; ///< by row; the place of its statement, from 1, or 0
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

/// Reads a whole level.
/// @param known the level as it was read before, or null; it serves again while its configuration says the
/// same.
/// @param read  receives the level otherwise.
/// @return one of the two; null where the directory yields no configuration.
const Level* readLevel(const std::string& directory, const Level* known, Level& read);

} // namespace Orv
