#include "store/level.h"

#include "store/catalogue.h"
#include "store/configurationhandle.h"
#include "store/kinds.h"

#include <algorithm>

namespace Orv {

namespace {

/// As strings, which a configuration is asked by.
const std::string& keyOf(std::size_t row) {
    static const auto keys = [] {
        std::vector<std::string> all;
        for (const auto& entry : catalogue())
            all.emplace_back(entry.key);
        return all;
    }();
    return keys[row];
}

} // namespace

void Statement::note(std::size_t field, LockNote words) {
    if (words.isEmpty())
        return;
    notes.resize(field + 1);
    notes[field] = std::move(words);
}

const Statement* Level::find(std::size_t row) const {
    const auto found = std::ranges::lower_bound(statements, row, {}, &Statement::row);
    return found != statements.end() && found->row == row ? &*found : nullptr;
}

void Level::replace(std::size_t row, std::optional<Statement> statement) {
    auto place = std::ranges::lower_bound(statements, row, {}, &Statement::row);
    if (place != statements.end() && place->row == row)
        place = statements.erase(place);
    if (statement)
        statements.insert(place, std::move(*statement));
}

std::optional<Statement> StatementReader::read(std::size_t row) {
    return kindTraits(catalogue()[row].kind).storage == Storage::group ? readGroup(row) : readList(row);
}

std::optional<Statement> StatementReader::readList(std::size_t row) {
    const auto& key = keyOf(row);
    const auto& path = pathOf(catalogue()[row].kind, key);
    if (!configuration_.readList(path, key, values_, locks_))
        return std::nullopt;
    Statement statement{row};
    statement.texts.assign(values_.begin(), values_.end());
    statement.locks = locks_;
    statement.locks.resize(values_.size());
    for (std::size_t item = 0; item < values_.size(); ++item) {
        if (statement.locks[item] != 0)
            statement.note(item, configuration_.keyLockNote(path, key, item));
    }
    return statement;
}

std::optional<Statement> StatementReader::readGroup(std::size_t row) {
    const auto& key = keyOf(row);
    const auto& traits = kindTraits(catalogue()[row].kind);
    bool isGroupLocked = false;
    if (!configuration_.readGroup(traits.path, traits.typeWord, key, attributes_, attributeLocks_,
                                  isGroupLocked))
        return std::nullopt;
    Statement statement{row};
    for (std::size_t field = 0; field < traits.fieldNames.size(); ++field) {
        const auto& name = traits.fieldNames[field];
        const auto text = attributes_.find(name);
        statement.texts.push_back(text == attributes_.end() ? std::nullopt : std::optional(text->second));
        const auto lock = attributeLocks_.find(name);
        const bool isLocked = isGroupLocked || (lock != attributeLocks_.end() && lock->second == 1);
        statement.locks.push_back(isLocked);
        if (isLocked)
            statement.note(field, configuration_.groupLockNote(traits.path, traits.typeWord, key, name));
    }
    return statement;
}

std::optional<Level> readLevel(const std::string& directory) {
    const auto configuration = openConfiguration(directory, IOvConfigurationManager::Access::read);
    if (!configuration)
        return std::nullopt;
    Level level{directory, true, {}};
    level.statements.reserve(kCatalogueSize);
    StatementReader reader(*configuration);
    for (std::size_t row = 0; row < kCatalogueSize; ++row) {
        if (auto statement = reader.read(row))
            level.statements.push_back(std::move(*statement));
    }
    return level;
}

} // namespace Orv
