// The commands that read: list and get.

#include "app/columns.h"
#include "app/commands.h"
#include "app/fieldtext.h"
#include "app/outcome.h"
#include "app/output.h"
#include "app/workspace.h"

#include <orv/configurationreport.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>

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

QJsonArray textArray(const std::vector<std::string>& texts) {
    QJsonArray array;
    for (const std::string& text : texts)
        array.append(QString::fromStdString(text));
    return array;
}

QJsonValue textOrNull(const std::string& text) {
    return text.empty() ? QJsonValue(QJsonValue::Null) : QJsonValue(QString::fromStdString(text));
}

QJsonObject toJson(const Orv::PropertyReport& report) {
    QJsonArray locks, origins, lockedBy, lockReasons, lockContacts;
    for (const auto lock : report.property.readonly)
        locks.append(lock != 0);
    for (const Orv::FieldOrigin& origin : report.origins) {
        origins.append(textOrNull(origin.valueDirectory));
        lockedBy.append(textOrNull(origin.lockDirectory));
        lockReasons.append(textOrNull(origin.lockNote.reason));
        lockContacts.append(textOrNull(origin.lockNote.contact));
    }
    return {
        {"key", QString::fromStdString(report.property.name)},
        {"kind", QString::fromUtf8(kindName(report.property.kind))},
        {"changed", report.changed},
        {"fields", textArray(Orv::iAppConfiguration::fieldNames(report.property.kind))},
        {"values", textArray(report.property.values)},
        {"builtIn", textArray(report.builtInDefault)},
        {"locks", locks},
        {"origins", origins},
        {"lockedBy", lockedBy},
        {"lockReasons", lockReasons},
        {"lockContacts", lockContacts},
    };
}

QJsonArray toJson(const std::vector<Orv::PropertyReport>& reports) {
    QJsonArray array;
    for (const Orv::PropertyReport& report : reports)
        array.append(toJson(report));
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
        writeJson(std::cout, toJson(reports));
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
