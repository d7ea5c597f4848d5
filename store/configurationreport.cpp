#include "orv/configurationreport.h"

#include "store/catalogue.h"
#include "store/kinds.h"
#include "store/level.h"
#include "store/record.h"

#include <algorithm>
#include <utility>

namespace Orv {

namespace {

using Property = iAppConfiguration::Property;

/// @param level nothing where the directory yields no configuration.
LevelStatement statementOf(const std::string& directory, const std::optional<Level>& level, std::size_t row) {
    LevelStatement statement;
    statement.directory = directory;
    statement.hasConfiguration = level.has_value();
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

PropertyReport withoutLevels(const iAppConfiguration& appConfig, const CatalogueRow& row) {
    PropertyReport report;
    report.property = Property(std::string(row.key));
    appConfig.getProperty(report.property);
    report.property.kind = row.kind;
    report.builtInDefault = cutFields(row.defaultText);
    report.origins.reserve(report.property.values.size());
    for (std::size_t i = 0; i < report.property.values.size(); ++i)
        report.origins.push_back({appConfig.valueDirectory(report.property.name, i),
                                  appConfig.lockingDirectory(report.property.name, i),
                                  appConfig.lockNote(report.property.name, i)});
    report.changed = differs(row.kind, report.property.values, report.builtInDefault);
    return report;
}

/// @param count from the first row on.
std::vector<PropertyReport> reportRows(const iAppConfiguration& appConfig, std::size_t first,
                                       std::size_t count) {
    std::vector<PropertyReport> reports;
    reports.reserve(count);
    auto directories = appConfig.workingDirectories();
    std::ranges::reverse(directories);
    for (const auto& row : catalogue().subspan(first, count)) {
        reports.push_back(withoutLevels(appConfig, row));
        reports.back().levels.reserve(directories.size());
    }
    for (const auto& directory : directories) {
        const auto level = readLevel(directory);
        for (std::size_t i = 0; i < count; ++i)
            reports[i].levels.push_back(statementOf(directory, level, first + i));
    }
    return reports;
}

} // namespace

std::vector<PropertyReport> reportConfiguration(const iAppConfiguration& appConfig) {
    return appConfig.keys().empty() ? std::vector<PropertyReport>()
                                    : reportRows(appConfig, 0, catalogue().size());
}

std::optional<PropertyReport> reportProperty(const iAppConfiguration& appConfig, const std::string& key) {
    const auto row = findRow(key);
    if (!row || appConfig.keys().empty())
        return std::nullopt;
    return std::move(reportRows(appConfig, *row, 1).front());
}

} // namespace Orv
