// The command that tells what a setting means: describe.

#include "app/columns.h"
#include "app/commands.h"
#include "app/declared.h"
#include "app/fieldtext.h"
#include "app/outcome.h"
#include "app/output.h"
#include "app/workspace.h"

#include <orv/declaration.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iostream>

namespace app {

namespace {

using Declaration = Orv::SettingDeclaration;
using Field = Orv::FieldDeclaration;

using Rows = std::vector<std::vector<std::string>>;

void appendChoices(const Field& field, Rows& rows) {
    std::size_t width = 0;
    for (const Orv::SettingChoice& choice : field.choices)
        width = std::max(width, choice.value.size());
    for (const Orv::SettingChoice& choice : field.choices) {
        std::string text(choice.value);
        text.append(width + 2 - text.size(), ' ').append(choice.caption);
        rows.push_back({&choice == &field.choices.front() ? "choices" : "", text});
    }
}

void appendField(const Field& field, Orv::Metrics::Unit unit, Rows& rows) {
    if (const std::string_view name = unitName(field.unit); !name.empty())
        rows.push_back({"unit", std::string(name)});
    if (field.limits)
        rows.push_back({"limits", Orv::limitsInWords(field, unit)});
    appendChoices(field, rows);
}

Rows captionAndMeaning(std::string_view caption, std::string_view meaning) {
    return {{"caption", std::string(caption)}, {"meaning", std::string(meaning)}};
}

std::string shownDefault(const Field& field, const std::string& text, Orv::Metrics::Unit unit) {
    if (text.empty())
        return "(empty)";
    return field.unit == Orv::SettingUnit::length ? text + " (" + Orv::lengthInWords(text, unit) + ")" : text;
}

void describe(std::ostream& out, const Declaration& setting, Orv::Metrics::Unit unit) {
    out << setting.key << " (" << kindName(setting.kind) << ")\n";
    std::vector<std::string> defaults = Orv::defaultsOf(setting);
    Rows rows = captionAndMeaning(setting.caption, setting.meaning);
    for (const std::string_view page : pagesOf(setting.key))
        rows.push_back({rows.back().front() == "meaning" ? "page" : "", std::string(page)});
    const bool isGroup = hasNamedFields(setting);
    if (!isGroup) {
        appendField(setting.fields.front(), unit, rows);
        defaults.resize(std::max<std::size_t>(1, defaults.size()));
        for (const std::string& text : defaults)
            rows.push_back({&text == &defaults.front() ? "default" : "",
                            shownDefault(setting.fields.front(), text, unit)});
    }
    writeColumns(out, rows, "  ");
    for (std::size_t at = 0; isGroup && at < setting.fields.size(); ++at) {
        const Field& field = setting.fields[at];
        out << '\n' << field.name << '\n';
        rows = captionAndMeaning(field.caption, field.meaning);
        appendField(field, unit, rows);
        rows.push_back({"default", shownDefault(field, defaults[at], unit)});
        writeColumns(out, rows, "  ");
    }
}

nlohmann::json fieldJson(const Field& field, const std::string& defaultText, Orv::Metrics::Unit unit) {
    return {
        {"name", field.name},      {"caption", field.caption},          {"meaning", field.meaning},
        {"unit", unitJson(field)}, {"limits", limitsJson(field, unit)}, {"choices", choicesJson(field)},
        {"default", defaultText},
    };
}

/// A group has a description for each field; what has no named fields is described as a whole.
nlohmann::json toJson(const Declaration& setting, Orv::Metrics::Unit unit) {
    const std::vector<std::string> defaults = Orv::defaultsOf(setting);
    const bool isGroup = hasNamedFields(setting);
    const Field whole = isGroup ? Field{} : setting.fields.front();
    auto fields = nlohmann::json::array();
    for (std::size_t at = 0; isGroup && at < setting.fields.size(); ++at)
        fields.push_back(fieldJson(setting.fields[at], defaults[at], unit));
    return {
        {"key", setting.key},
        {"kind", kindName(setting.kind)},
        {"caption", setting.caption},
        {"meaning", setting.meaning},
        {"pages", pagesOf(setting.key)},
        {"unit", unitJson(whole)},
        {"limits", limitsJson(whole, unit)},
        {"choices", choicesJson(whole)},
        {"default", defaults},
        {"fields", std::move(fields)},
    };
}

/// The unit in use is read where something is told in it, and not otherwise.
bool readUnit(const Options& options, std::span<const Declaration* const> settings,
              Orv::Metrics::Unit& unit) {
    const auto isLength = [](const Declaration* setting) {
        return std::ranges::any_of(setting->fields,
                                   [](const Field& field) { return field.unit == Orv::SettingUnit::length; });
    };
    if (std::ranges::none_of(settings, isLength))
        return true;
    Orv::iAppConfiguration configuration;
    if (!openToRead(options, configuration))
        return false;
    unit = Orv::unitInUse(configuration);
    return true;
}

} // namespace

int runDescribe(const Options& options, Arguments arguments) {
    bool json = false;
    std::vector<const Declaration*> settings;
    for (const std::string& argument : arguments) {
        if (argument == "--json")
            json = true;
        else if (argument.starts_with("--"))
            return misuse("describe takes --json, not " + argument);
        else if (const Declaration* setting = Orv::declarationOf(argument))
            settings.push_back(setting);
        else
            return refuse("there is no key " + argument);
    }
    if (settings.empty())
        return misuse("describe takes keys");
    Orv::Metrics::Unit unit;
    if (!readUnit(options, settings, unit))
        return kRefused;

    if (json) {
        auto array = nlohmann::json::array();
        for (const Declaration* setting : settings)
            array.push_back(toJson(*setting, unit));
        writeJson(std::cout, array);
        return kDone;
    }
    for (std::size_t at = 0; at < settings.size(); ++at) {
        std::cout << (at == 0 ? "" : "\n");
        describe(std::cout, *settings[at], unit);
    }
    return kDone;
}

} // namespace app
