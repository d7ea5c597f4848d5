// The commands that read: list and get.

#include "app/columns.h"
#include "app/commands.h"
#include "app/declared.h"
#include "app/fieldtext.h"
#include "app/outcome.h"
#include "app/output.h"
#include "app/workspace.h"

#include <orv/configurationreport.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iostream>

namespace app {

namespace {

constexpr const char* kBuiltIn = "built-in";

std::string join(const std::vector<std::string>& texts) {
    std::string joined;
    for (const std::string& text : texts)
        joined += (joined.empty() ? "" : ", ") + text;
    return joined;
}

void appendNew(std::vector<std::string>& texts, const std::string& text) {
    if (std::ranges::find(texts, text) == texts.end())
        texts.push_back(text);
}

// Where the values come from, each place once.
std::string originsOf(const Orv::PropertyReport& report) {
    std::vector<std::string> places;
    for (const Orv::FieldOrigin& origin : report.origins)
        appendNew(places, origin.valueDirectory.empty() ? kBuiltIn : origin.valueDirectory);
    return places.empty() ? kBuiltIn : join(places);
}

// "locked", or the names of the locked fields where others are free.
std::string locksOf(const Orv::PropertyReport& report) {
    const auto& locks = report.property.readonly;
    if (std::ranges::find(locks, 1) == locks.end())
        return "-";
    if (std::ranges::find(locks, 0) == locks.end())
        return "locked";
    const std::vector<std::string> names = Orv::iAppConfiguration::fieldNames(report.property.kind);
    std::vector<std::string> locked;
    for (std::size_t field = 0; field < locks.size(); ++field) {
        if (locks[field])
            locked.push_back(field < names.size() ? names[field] : "entry " + std::to_string(field + 1));
    }
    return "locked: " + join(locked);
}

void writeTable(std::ostream& out, const std::vector<Orv::PropertyReport>& reports) {
    std::vector<std::vector<std::string>> rows{{"KEY", "KIND", "FROM", "LOCKS", "VALUES"}};
    for (const Orv::PropertyReport& report : reports) {
        rows.push_back({report.property.name, std::string(kindName(report.property.kind)), originsOf(report),
                        locksOf(report), join(report.property.values)});
    }
    writeColumns(out, rows);
}

nlohmann::json textOrNull(const std::string& text) {
    return text.empty() ? nlohmann::json() : nlohmann::json(text);
}

/// What is declared of a setting: unit, limits and choices one entry a field, of a list one for all its
/// entries.
nlohmann::json declaredJson(const Orv::SettingDeclaration& setting, Orv::Metrics::Unit unit) {
    auto units = nlohmann::json::array();
    auto limits = nlohmann::json::array();
    auto choices = nlohmann::json::array();
    for (const Orv::FieldDeclaration& field : setting.fields) {
        units.push_back(unitJson(field));
        limits.push_back(limitsJson(field, unit));
        choices.push_back(choicesJson(field));
    }
    return {
        {"caption", setting.caption},    {"unit", std::move(units)},      {"limits", std::move(limits)},
        {"choices", std::move(choices)}, {"pages", pagesOf(setting.key)},
    };
}

nlohmann::json toJson(const Orv::PropertyReport& report, Orv::Metrics::Unit unit) {
    auto locks = nlohmann::json::array();
    auto origins = nlohmann::json::array();
    auto lockedBy = nlohmann::json::array();
    auto lockReasons = nlohmann::json::array();
    auto lockContacts = nlohmann::json::array();
    for (const auto lock : report.property.readonly)
        locks.push_back(lock != 0);
    for (const Orv::FieldOrigin& origin : report.origins) {
        origins.push_back(textOrNull(origin.valueDirectory));
        lockedBy.push_back(textOrNull(origin.lockDirectory));
        lockReasons.push_back(textOrNull(origin.lockNote.reason));
        lockContacts.push_back(textOrNull(origin.lockNote.contact));
    }
    nlohmann::json row = {
        {"key", report.property.name},
        {"kind", kindName(report.property.kind)},
        {"changed", report.changed},
        {"fields", Orv::iAppConfiguration::fieldNames(report.property.kind)},
        {"values", report.property.values},
        {"builtIn", report.builtInDefault},
        {"locks", std::move(locks)},
        {"origins", std::move(origins)},
        {"lockedBy", std::move(lockedBy)},
        {"lockReasons", std::move(lockReasons)},
        {"lockContacts", std::move(lockContacts)},
    };
    row.update(declaredJson(*Orv::declarationOf(report.property.name), unit));
    return row;
}

nlohmann::json toJson(const std::vector<Orv::PropertyReport>& reports, Orv::Metrics::Unit unit) {
    auto array = nlohmann::json::array();
    for (const Orv::PropertyReport& report : reports)
        array.push_back(toJson(report, unit));
    return array;
}

} // namespace

int runList(const Options& options, Arguments arguments) {
    bool changedOnly = false;
    bool json = false;
    for (const std::string& argument : arguments) {
        if (argument == "--changed")
            changedOnly = true;
        else if (argument == "--json")
            json = true;
        else
            return misuse("list takes --changed and --json, not " + argument);
    }
    Orv::iAppConfiguration configuration;
    if (!openToRead(options, configuration))
        return kRefused;

    std::vector<Orv::PropertyReport> reports = Orv::reportConfiguration(configuration);
    if (changedOnly)
        std::erase_if(reports, [](const Orv::PropertyReport& report) { return !report.changed; });
    if (json)
        writeJson(std::cout, toJson(reports, Orv::unitInUse(configuration)));
    else
        writeTable(std::cout, reports);
    return kDone;
}

int runGet(const Options& options, Arguments arguments) {
    if (arguments.size() != 1)
        return misuse("get takes one key");
    Orv::iAppConfiguration configuration;
    if (!openToRead(options, configuration))
        return kRefused;

    Orv::iAppConfiguration::Property property(arguments.front());
    if (!configuration.getProperty(property))
        return refuse("there is no key " + property.name);
    for (const std::string& value : property.values)
        std::cout << forOutput(value) << '\n';
    return kDone;
}

} // namespace app
