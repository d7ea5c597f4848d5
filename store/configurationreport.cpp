#include "orv/configurationreport.h"

#include "store/catalogue.h"
#include "store/kinds.h"
#include "store/level.h"
#include "store/store.h"

#include <algorithm>
#include <utility>

namespace Orv {

namespace {

/// @param level null where the directory yields no configuration.
LevelStatement statementOf(const std::string& directory, const Level* level, std::size_t row) {
    LevelStatement statement;
    statement.directory = directory;
    statement.hasConfiguration = level != nullptr;
    const auto* said = level ? level->find(row) : nullptr;
    statement.present = said != nullptr;
    if (!said)
        return statement;
    statement.values.reserve(said->fields.size());
    for (const auto& field : said->fields) {
        statement.values.push_back(field.text);
        statement.locks.push_back(field.isLocked);
    }
    return statement;
}

/// @param values in normal form, since "1.016e+06" changes nothing of "1016000".
bool differs(int kind, const std::vector<std::string>& values,
             const std::vector<std::string>& builtInDefault) {
    if (values == builtInDefault)
        return false;
    auto printed = builtInDefault;
    normaliseFields(kind, printed);
    return values != printed;
}

FieldOrigin originOf(const std::vector<Level>& levels, std::size_t row, std::size_t field,
                     const Origin& origin) {
    FieldOrigin told;
    if (origin.value)
        told.valueDirectory = levels[*origin.value].directory();
    if (!origin.lock)
        return told;
    told.lockDirectory = levels[*origin.lock].directory();
    const auto* statement = levels[*origin.lock].find(row);
    if (statement && field < statement->notes.size())
        told.lockNote = statement->notes[field];
    return told;
}

} // namespace

/// Reports what a store knows of its rows.
class ConfigurationReporter {
public:
    explicit ConfigurationReporter(const iAppConfiguration& appConfig) : store_(*appConfig.impl_) {}

    bool isLoaded() const { return !store_.records.isEmpty(); }

    std::vector<PropertyReport> report(std::size_t first, std::size_t count) {
        std::vector<PropertyReport> reports;
        reports.reserve(count);
        for (std::size_t row = first; row < first + count; ++row)
            reports.push_back(withoutLevels(row));
        // What the files say by now, which need not be what the store has read.
        for (std::size_t place = store_.directories.size(); place-- > 0;) {
            const auto& known = store_.records.levels();
            const auto& directory = store_.directories[place];
            Level read;
            const auto* level = readLevel(directory, place < known.size() ? &known[place] : nullptr, read);
            for (std::size_t i = 0; i < count; ++i)
                reports[i].levels.push_back(statementOf(directory, level, first + i));
        }
        return reports;
    }

private:
    PropertyReport withoutLevels(std::size_t row) {
        const auto& record = store_.lookAtPrinted(row);
        const auto& fields = record.property.values;
        PropertyReport report;
        report.property = record.property;
        report.builtInDefault = cutFields(catalogue()[row].defaultText);
        report.origins.reserve(fields.size());
        for (std::size_t i = 0; i < fields.size(); ++i)
            report.origins.push_back(originOf(store_.records.levels(), row, i, record.origins[i]));
        report.changed = differs(record.property.kind, fields, report.builtInDefault);
        report.levels.reserve(store_.directories.size());
        return report;
    }

    iAppConfiguration::Impl& store_;
};

std::vector<PropertyReport> reportConfiguration(const iAppConfiguration& appConfig) {
    ConfigurationReporter reporter(appConfig);
    return reporter.isLoaded() ? reporter.report(0, catalogue().size()) : std::vector<PropertyReport>();
}

std::optional<PropertyReport> reportProperty(const iAppConfiguration& appConfig, const std::string& key) {
    ConfigurationReporter reporter(appConfig);
    const auto row = findRow(key);
    if (!row || !reporter.isLoaded())
        return std::nullopt;
    return std::move(reporter.report(*row, 1).front());
}

} // namespace Orv
