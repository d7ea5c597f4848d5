#include "orv/configurationreport.h"

#include "store/catalogue.h"
#include "store/configurationhandle.h"
#include "store/kinds.h"
#include "store/store.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <span>
#include <utility>

namespace Orv {

namespace {

using Property = iAppConfiguration::Property;

void readListStatement(const IOvConfiguration& configuration, const Property& property,
                       LevelStatement& statement) {
    std::vector<std::string> values;
    std::vector<std::uint8_t> locks;
    statement.present =
        configuration.readList(pathOf(property.kind, property.name), property.name, values, locks);
    locks.resize(values.size());
    statement.values.assign(values.begin(), values.end());
    statement.locks.assign(locks.begin(), locks.end());
}

void readGroupStatement(const IOvConfiguration& configuration, const Property& property,
                        LevelStatement& statement) {
    const auto& traits = kindTraits(property.kind);
    std::map<std::string, std::string> attributes;
    std::map<std::string, int> locks;
    bool groupLocked = false;
    statement.present =
        configuration.readGroup(traits.path, traits.typeWord, property.name, attributes, locks, groupLocked);
    if (!statement.present)
        return;
    for (const auto& name : traits.fieldNames) {
        const auto text = attributes.find(name);
        const auto lock = locks.find(name);
        statement.values.push_back(text == attributes.end() ? std::nullopt : std::optional(text->second));
        statement.locks.push_back(groupLocked || (lock != locks.end() && lock->second == 1));
    }
}

LevelStatement statementOf(const std::string& directory, const IOvConfiguration* configuration,
                           const Property& property) {
    LevelStatement statement;
    statement.directory = directory;
    statement.hasConfiguration = configuration != nullptr;
    if (!configuration)
        return statement;
    if (kindTraits(property.kind).storage == Storage::group)
        readGroupStatement(*configuration, property, statement);
    else
        readListStatement(*configuration, property, statement);
    return statement;
}

/// Compares in normal form, since "1.016e+06" changes nothing of "1016000".
bool differs(int kind, std::vector<std::string> values, std::vector<std::string> builtInDefault) {
    normaliseFields(kind, values);
    normaliseFields(kind, builtInDefault);
    return values != builtInDefault;
}

PropertyReport withoutLevels(const iAppConfiguration& appConfig, const CatalogueRow& row) {
    PropertyReport report;
    report.property = Property(std::string(row.key));
    appConfig.getProperty(report.property);
    report.property.kind = row.kind;
    report.builtInDefault = cutFields(row.defaultText);
    for (std::size_t i = 0; i < report.property.values.size(); ++i)
        report.origins.push_back({appConfig.valueDirectory(report.property.name, i),
                                  appConfig.lockingDirectory(report.property.name, i),
                                  appConfig.lockNote(report.property.name, i)});
    report.changed = differs(row.kind, report.property.values, report.builtInDefault);
    return report;
}

std::vector<PropertyReport> reportRows(const iAppConfiguration& appConfig,
                                       std::span<const CatalogueRow> rows) {
    std::vector<PropertyReport> reports;
    for (const auto& row : rows)
        reports.push_back(withoutLevels(appConfig, row));
    auto directories = appConfig.workingDirectories();
    std::ranges::reverse(directories);
    for (const auto& directory : directories) {
        const auto configuration = openConfiguration(directory, IOvConfigurationManager::Access::read);
        for (auto& report : reports)
            report.levels.push_back(statementOf(directory, configuration.get(), report.property));
    }
    return reports;
}

} // namespace

std::vector<PropertyReport> reportConfiguration(const iAppConfiguration& appConfig) {
    return appConfig.keys().empty() ? std::vector<PropertyReport>() : reportRows(appConfig, catalogue());
}

std::optional<PropertyReport> reportProperty(const iAppConfiguration& appConfig, const std::string& key) {
    const auto row = findRow(key);
    if (!row || appConfig.keys().empty())
        return std::nullopt;
    return std::move(reportRows(appConfig, catalogue().subspan(*row, 1)).front());
}

} // namespace Orv
