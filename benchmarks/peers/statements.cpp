#include "benchmarks/peers/statements.h"

#include "orv/configurationreport.h"

#include <QtCore/QString>

#include <algorithm>
#include <array>
#include <fstream>
#include <set>
#include <stdexcept>
#include <string_view>

namespace bench {

namespace {

using Orv::iAppConfiguration;

constexpr std::string_view kColorLists[] = {"PRINTER", "SCREEN"};
constexpr std::string_view kSettingLists[] = {"PROPERTIES_TOOLTIP", "MRU_PROJECTS"};

/// The section of a file where a kind's keys stand, and the type of its groups.
struct Place {
    const char* section;
    const char* groupType;
};

constexpr std::array<Place, 10> kPlaces = {{
    {"Orvane/SETTINGS", ""}, // of a key that the store does not know
    {"Orvane/SETTINGS", ""},
    {"Orvane/SETTINGS", ""},
    {"Orvane/LAYERS", "layer"},
    {"Orvane/OBJECTS", "object"},
    {"Orvane", ""},
    {"Orvane/SETTINGS", ""},
    {"Orvane/SIZES", "size"},
    {"Orvane/FONT_MAP", "font"},
    {"Orvane/ICTOBJECTS", "object"},
}};

std::string sectionOf(const Statement& statement, int kind) {
    if (std::ranges::find(kColorLists, statement.key) != std::end(kColorLists))
        return "Orvane/COLORS";
    if (std::ranges::find(kSettingLists, statement.key) != std::end(kSettingLists))
        return "Orvane/SETTINGS";
    return kPlaces[static_cast<std::size_t>(kind)].section;
}

std::string escaped(const std::string& text) {
    return QString::fromStdString(text).toHtmlEscaped().toStdString();
}

std::string elementOf(const Statement& statement, int kind) {
    const std::string name =
        " name=\"" + statement.key + "\"" + (statement.isLocked ? " locked=\"yes\">" : ">");
    const std::vector<std::string> fields = iAppConfiguration::fieldNames(kind);
    std::string text;
    if (kind == iAppConfiguration::KindList) {
        for (const auto& value : statement.values)
            text += "\n            <item>" + escaped(value) + "</item>";
        return "        <list" + name + text + "</list>\n";
    }
    if (fields.empty())
        return "        <value" + name + escaped(statement.values.front()) + "</value>\n";
    for (std::size_t i = 0; i < fields.size(); ++i)
        text += "            <attribute name=\"" + fields[i] + "\">" + escaped(statement.values.at(i)) +
                "</attribute>\n";
    return std::string("        <group type=\"") + kPlaces[static_cast<std::size_t>(kind)].groupType + "\"" +
           name + "\n" + text + "        </group>\n";
}

std::string xmlOf(const std::vector<Statement>& statements) {
    std::map<std::string, std::string> sections;
    for (const auto& statement : statements) {
        const int kind = iAppConfiguration::kindOf(statement.key);
        sections[sectionOf(statement, kind)] += elementOf(statement, kind);
    }
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<configuration>\n";
    for (const auto& [path, elements] : sections)
        text.append("    <section path=\"")
            .append(path)
            .append("\">\n")
            .append(elements)
            .append("    </section>\n");
    return text + "</configuration>\n";
}

void enlarge(std::vector<Statement>& statements, int size) {
    std::size_t length = xmlOf(statements).size();
    const std::size_t wanted = length * static_cast<std::size_t>(size);
    for (int i = 0; length < wanted; ++i) {
        const std::string number = std::to_string(i);
        statements.push_back({"ANOTHER_PROGRAM_SETTING_" + number, false, {number}, false});
        length += elementOf(statements.back(), 0).size();
    }
}

Statements statementsOf(const iAppConfiguration& configuration, Installation installation) {
    Statements statements;
    for (const auto& report : Orv::reportConfiguration(configuration)) {
        const auto& [property, builtIn, levels, origins, isChanged] = report;
        const bool isList = property.kind == iAppConfiguration::KindList ||
                            !iAppConfiguration::fieldNames(property.kind).empty();
        const bool isLocked = std::ranges::find(property.readonly, 1) != property.readonly.end();
        Statement inForce{property.name, isList, property.values, false};
        if (!isList)
            inForce.values.resize(1); // a text without a default has no value

        const bool isUsers = levels[2].present || property.name == kSavedKey;
        if (installation == Installation::complete || levels[0].present) {
            statements[0].push_back(inForce);
            if (levels[1].present || isUsers) {
                statements[0].back().values = builtIn;
                statements[0].back().values.resize(inForce.values.size());
            }
        }
        if (levels[1].present) {
            statements[1].push_back(inForce);
            statements[1].back().isLocked = isLocked;
        }
        if (isUsers || isLocked)
            statements[2].push_back(inForce);
        if (property.name == kSavedKey)
            statements[2].back().values = {std::to_string(kSavedValue)};
        if (isLocked)
            statements[2].back().values.front() = inForce.values.front() == "0" ? "1" : "0";
    }
    return statements;
}

} // namespace

Statements stateLevels(const Levels& levels, Installation installation, int size) {
    iAppConfiguration configuration;
    if (!configuration.load())
        throw std::runtime_error("the benchmark's own installation does not load");
    Statements statements = statementsOf(configuration, installation);
    for (std::size_t level = 0; level < statements.size(); ++level) {
        enlarge(statements[level], size);
        std::ofstream file(levels.files()[level], std::ios::binary);
        file << xmlOf(statements[level]);
        if (!file.flush())
            throw std::runtime_error("cannot write " + levels.files()[level].string());
    }
    return statements;
}

std::map<std::string, std::vector<std::string>> cascade(const Statements& statements, bool withLocks) {
    std::map<std::string, std::vector<std::string>> values;
    std::set<std::string> locked;
    for (const auto& level : statements) {
        for (const auto& statement : level) {
            if (!locked.contains(statement.key))
                values[statement.key] = statement.values;
            if (statement.isLocked && withLocks)
                locked.insert(statement.key);
        }
    }
    return values;
}

} // namespace bench
