#include "store/level.h"

#include "store/catalogue.h"
#include "store/configurationhandle.h"
#include "store/kinds.h"

#include <algorithm>
#include <utility>

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

constexpr std::size_t kUsualStatements = 64; // of a level that has any

std::string_view withoutSlash(std::string_view path) {
    return path.substr(0, path.find_last_not_of('/') + 1);
}

/// The property that an entry is meant for: one of another path or type is none of ours.
std::optional<std::size_t> rowOf(const ConfigurationEntry& entry) {
    const auto row = findRow(entry.key);
    if (!row)
        return std::nullopt;
    const auto& traits = kindTraits(catalogue()[*row].kind);
    const auto& path = pathOf(catalogue()[*row].kind, keyOf(*row));
    return entry.typeWord == traits.typeWord && entry.path == withoutSlash(path) ? row : std::nullopt;
}

void take(const ConfigurationPart& part, std::size_t field, Statement& statement) {
    auto& stated = statement.fields[field];
    if (part.hasText)
        stated.text = part.text;
    stated.isLocked = part.isLocked;
    if (part.isLocked)
        statement.note(field, {std::string(part.reason), std::string(part.contact)});
}

void takeItems(const ConfigurationEntry& entry, Statement& statement) {
    statement.fields.resize(entry.parts.size());
    for (std::size_t item = 0; item < entry.parts.size(); ++item) {
        take(entry.parts[item], item, statement);
        statement.fields[item].text = entry.parts[item].text; // of what has no text, an empty one
    }
}

/// The words of a lock of the whole stand at each field, those that are not mentioned included.
void takeAttributes(const ConfigurationEntry& entry, Statement& statement) {
    const auto& names = kindTraits(catalogue()[statement.row].kind).fieldNames;
    statement.fields.resize(names.size());
    for (std::size_t field = 0; field < names.size(); ++field) {
        const auto part = std::ranges::find(entry.parts, names[field], &ConfigurationPart::name);
        if (part != entry.parts.end())
            take(*part, field, statement);
        else if (entry.isLocked)
            take({.hasText = false, .isLocked = true, .reason = entry.reason, .contact = entry.contact},
                 field, statement);
    }
}

Statement statementOf(std::size_t row, const ConfigurationEntry& entry) {
    Statement statement{row, {}, {}};
    if (entry.typeWord.empty())
        takeItems(entry, statement);
    else
        takeAttributes(entry, statement);
    return statement;
}

} // namespace

void Statement::note(std::size_t field, LockNote words) {
    if (words.isEmpty())
        return;
    notes.resize(field + 1);
    notes[field] = std::move(words);
}

bool Statement::isAnyLocked() const {
    return std::ranges::any_of(fields, &StatedField::isLocked);
}

std::vector<std::string> Statement::texts() const {
    std::vector<std::string> all;
    all.reserve(fields.size());
    for (const auto& field : fields)
        all.push_back(field.text.value_or(std::string()));
    return all;
}

const Statement* Level::find(std::size_t row) const {
    return row < places_.size() && places_[row] != 0 ? &statements_[places_[row] - 1U] : nullptr;
}

void Level::add(Statement statement) {
    if (places_.empty()) {
        places_.resize(catalogue().size());
        statements_.reserve(kUsualStatements);
    }
    const auto row = statement.row;
    statements_.push_back(std::move(statement));
    places_[row] = static_cast<std::uint16_t>(statements_.size());
}

void Level::replace(std::size_t row, std::optional<Statement> statement) {
    revision_ = 0;
    if (!find(row)) {
        if (statement)
            add(std::move(*statement));
        return;
    }
    auto& said = statements_[places_[row] - 1U];
    if (statement) {
        said = std::move(*statement);
        return;
    }
    // The last one takes its place.
    const std::size_t place = std::exchange(places_[row], std::uint16_t{0}) - 1U;
    if (place + 1 != statements_.size()) {
        said = std::move(statements_.back());
        places_[said.row] = static_cast<std::uint16_t>(place + 1);
    }
    statements_.pop_back();
}

std::optional<Statement> StatementReader::read(std::size_t row) {
    return kindTraits(catalogue()[row].kind).storage == Storage::group ? readGroup(row) : readList(row);
}

std::optional<Statement> StatementReader::readList(std::size_t row) {
    const auto& key = keyOf(row);
    const auto& path = pathOf(catalogue()[row].kind, key);
    if (!configuration_.readList(path, key, values_, locks_))
        return std::nullopt;
    locks_.resize(values_.size());
    Statement statement{row, {}, {}};
    statement.fields.resize(values_.size());
    for (std::size_t item = 0; item < values_.size(); ++item) {
        statement.fields[item] = {values_[item], locks_[item] != 0};
        if (locks_[item] != 0)
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
    Statement statement{row, {}, {}};
    statement.fields.resize(traits.fieldNames.size());
    for (std::size_t field = 0; field < traits.fieldNames.size(); ++field) {
        const auto& name = traits.fieldNames[field];
        auto& stated = statement.fields[field];
        if (const auto text = attributes_.find(name); text != attributes_.end())
            stated.text = text->second;
        const auto lock = attributeLocks_.find(name);
        stated.isLocked = isGroupLocked || (lock != attributeLocks_.end() && lock->second == 1);
        if (stated.isLocked)
            statement.note(field, configuration_.groupLockNote(traits.path, traits.typeWord, key, name));
    }
    return statement;
}

const Level* readLevel(const std::string& directory, const Level* known, Level& read) {
    const auto configuration = openConfiguration(directory, IOvConfigurationManager::Access::read);
    if (!configuration)
        return nullptr;
    if (known && known->isOfRevision(configuration->revision()) && known->directory() == directory)
        return known;
    read = Level(directory, true, configuration->revision());
    const bool isTold = configuration->readAll([&read](const ConfigurationEntry& entry) {
        if (const auto row = rowOf(entry); row && !read.find(*row))
            read.add(statementOf(*row, entry));
    });
    if (isTold)
        return &read;
    StatementReader reader(*configuration);
    for (std::size_t row = 0; row < catalogue().size(); ++row) {
        if (auto statement = reader.read(row))
            read.add(std::move(*statement));
    }
    return &read;
}

} // namespace Orv
