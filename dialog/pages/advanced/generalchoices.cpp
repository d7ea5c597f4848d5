#include "dialog/pages/advanced/generalchoices.h"

#include "store/appcfg.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <cstdlib>

namespace ovsettings {

namespace {

constexpr const char* kAny = nullptr;

std::string asNumber(const std::string& stored) {
    return std::to_string(std::strtol(stored.c_str(), nullptr, 10));
}

std::string asFlag(const std::string& stored) {
    return std::strtol(stored.c_str(), nullptr, 10) == 0 ? "0" : "1";
}

std::string asText(const std::string& stored) {
    return stored;
}

constexpr const char* kCrosshairKeys[] = {"CROSSCURSOR"};
// Users know "Full Extant", spelled so: a stored 2 shows this text, which is no choice, and so is left alone
// until the user chooses.
constexpr ChoiceShown kCrosshairShown[] = {
    {{"0"}, QT_TRANSLATE_NOOP("ovsettings", "None")},
    {{"1"}, QT_TRANSLATE_NOOP("ovsettings", "Small")},
    {{"2"}, QT_TRANSLATE_NOOP("ovsettings", "Full Extant")},
};
constexpr ChoiceWritten kCrosshairWritten[] = {
    {QT_TRANSLATE_NOOP("ovsettings", "None"), {"0"}},
    {QT_TRANSLATE_NOOP("ovsettings", "Small"), {"1"}},
    {QT_TRANSLATE_NOOP("ovsettings", "Full Extent"), {"2"}},
};

constexpr const char* kLanguageKeys[] = {"LANGUAGE"};
constexpr ChoiceShown kLanguageShown[] = {
    {{"Default"}, QT_TRANSLATE_NOOP("ovsettings", "Default")},
    {{"ENG"}, QT_TRANSLATE_NOOP("ovsettings", "English")},
    {{kAny}, QT_TRANSLATE_NOOP("ovsettings", "Japanese")},
};
constexpr ChoiceWritten kLanguageWritten[] = {
    {QT_TRANSLATE_NOOP("ovsettings", "Default"), {"Default"}},
    {QT_TRANSLATE_NOOP("ovsettings", "English"), {"ENG"}},
    {QT_TRANSLATE_NOOP("ovsettings", "Japanese"), {"JPN"}},
};

constexpr const char* kArrowKeys[] = {"PINTYPE_ARROWS", "EURO_ARROWS"};
constexpr ChoiceShown kArrowsShown[] = {
    {{"0", kAny}, QT_TRANSLATE_NOOP("ovsettings", "None")},
    {{"1", "0"}, QT_TRANSLATE_NOOP("ovsettings", "Full Size")},
    {{"1", "1"}, QT_TRANSLATE_NOOP("ovsettings", "Half Size")},
};
constexpr ChoiceWritten kArrowsWritten[] = {
    {QT_TRANSLATE_NOOP("ovsettings", "None"), {"0", "0"}},
    {QT_TRANSLATE_NOOP("ovsettings", "Full Size"), {"1", "0"}},
    {QT_TRANSLATE_NOOP("ovsettings", "Half Size"), {"1", "1"}},
};

constexpr ChoiceTable kChoiceTables[] = {
    {kCrosshairKeys, asNumber, kCrosshairShown, kCrosshairWritten, false},
    {kLanguageKeys, asText, kLanguageShown, kLanguageWritten, true},
    {kArrowKeys, asFlag, kArrowsShown, kArrowsWritten, false},
};

} // namespace

const ChoiceTable* choiceTableOf(std::string_view key) {
    const auto found =
        std::ranges::find_if(kChoiceTables, [key](const auto& table) { return table.keys.front() == key; });
    return found == std::end(kChoiceTables) ? nullptr : &*found;
}

QString choiceCaption(const char* text) {
    return QCoreApplication::translate("ovsettings", text);
}

QString shownChoice(const ChoiceTable& table, const Orv::iAppConfiguration& appConfig) {
    const auto matches = [&](const ChoiceShown& row) {
        for (std::size_t at = 0; at < table.keys.size(); ++at) {
            std::string stored;
            Orv::getValue(appConfig, table.keys[at], stored);
            if (row.stored[at] != kAny && table.normalForm(stored) != row.stored[at])
                return false;
        }
        return true;
    };
    const auto found = std::ranges::find_if(table.shown, matches);
    return found == table.shown.end() ? QString() : choiceCaption(found->text);
}

const ChoiceWritten* writtenFor(const ChoiceTable& table, const QString& shown) {
    const auto found = std::ranges::find_if(
        table.written, [&shown](const auto& row) { return choiceCaption(row.choice) == shown; });
    return found == table.written.end() ? nullptr : &*found;
}

bool writeChoice(const ChoiceTable& table, const ChoiceWritten& written, Orv::iAppConfiguration& appConfig) {
    bool holds = true;
    for (std::size_t at = 0; at < table.keys.size(); ++at) {
        Orv::setValue(appConfig, table.keys[at], written.values[at]);
        std::string stored;
        Orv::getValue(appConfig, table.keys[at], stored);
        holds = holds && stored == written.values[at];
    }
    return holds;
}

} // namespace ovsettings
