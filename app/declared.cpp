#include "app/declared.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace app {

namespace {

struct PageOfKey {
    std::string_view key;
    std::string_view page;
};

constexpr PageOfKey kPagesOfKeys[] = {
#include "pagesofkeys.inc"
};

} // namespace

std::vector<std::string_view> pagesOf(std::string_view key) {
    std::vector<std::string_view> pages;
    for (const PageOfKey& row : kPagesOfKeys) {
        if (row.key == key)
            pages.push_back(row.page);
    }
    return pages;
}

std::string_view unitName(Orv::SettingUnit unit) {
    return unit == Orv::SettingUnit::length ? "10 nm" : "";
}

bool hasNamedFields(const Orv::SettingDeclaration& setting) {
    return !setting.fields.front().name.empty();
}

std::string allowedInWords(const Orv::FieldDeclaration& field, Orv::Metrics::Unit unit) {
    if (field.choices.empty())
        return Orv::limitsInWords(field, unit);
    std::string words;
    for (const Orv::SettingChoice& choice : field.choices)
        words.append(words.empty() ? "one of " : ", ")
            .append(choice.value)
            .append(" (")
            .append(choice.caption) += ')';
    return words;
}

nlohmann::json unitJson(const Orv::FieldDeclaration& field) {
    const std::string_view name = unitName(field.unit);
    return name.empty() ? nlohmann::json() : nlohmann::json(name);
}

nlohmann::json limitsJson(const Orv::FieldDeclaration& field, Orv::Metrics::Unit unit) {
    return field.limits ? nlohmann::json(Orv::limitsInWords(field, unit)) : nlohmann::json();
}

nlohmann::json choicesJson(const Orv::FieldDeclaration& field) {
    auto choices = nlohmann::json::array();
    for (const Orv::SettingChoice& choice : field.choices)
        choices.push_back({{"value", choice.value}, {"caption", choice.caption}});
    return choices;
}

std::optional<std::string> objectionOfDialog(const Orv::SettingDeclaration& setting, std::size_t field,
                                             std::string_view text, Orv::Metrics::Unit unit) {
    const Orv::FieldDeclaration& declared = setting.fields[hasNamedFields(setting) ? field : 0];
    if (Orv::isAllowed(declared, text, unit))
        return std::nullopt;
    return "it has to be " + allowedInWords(declared, unit) + "; --force stores it all the same";
}

} // namespace app
