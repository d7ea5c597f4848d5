#include "orv/printingaccess.h"

#include "orv/appconfiguration.h"
#include "platform/paths.h"
#include "platform/readfile.h"
#include "store/appcfg.h"
#include "store/colors.h"
#include "store/numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <locale>
#include <optional>
#include <sstream>

namespace Orv {

namespace {

using Property = iAppConfiguration::Property;

constexpr std::array<std::string_view, 17> kObjectKeys{
    "LINE",
    "BOX",
    "TEXT",
    "CIRCLE",
    "ARC",
    "NET",
    "ATTRIBUTE",
    "COMPONENT",
    "LABEL",
    "PIN",
    "WIRE",
    "ANNOTATION_LAYER",
    "SELECTION_LAYER",
    "BACKGROUND_LAYER",
    "VALUE_LAYER",
    "BORDER_LAYER",
    "HIGHLIGHT_LAYER",
};

/// The layers have a second row of numbers.
constexpr int kFirstLayer = 11;
constexpr int kSecondFirstLayer = 1036;
constexpr int kLayers = 6;

constexpr std::array<std::string_view, 11> kSheetKeys{
    "A_SIZE_HR",  "B_SIZE_HR",  "C_SIZE_HR",  "D_SIZE_HR",  "E_SIZE_HR", "A4_SIZE_HR",
    "A3_SIZE_HR", "A2_SIZE_HR", "A1_SIZE_HR", "A0_SIZE_HR", "Z_SIZE_HR",
};

/// The words of PRINTINGCOLORS, in the order of its slots. They are those of the print dialog and not the
/// keys of the objects: an attribute is a PROPERTY here, and layers go by their bare names. Objects are
/// looked up by their keys all the same, and those that are not found print as the first word does. This is
/// meant for hosts, whose users have files that count on it.
constexpr std::array<std::string_view, 17> kPrintingWords{
    "LINE", "BOX",  "TEXT",       "CIRCLE",    "ARC",        "NET",   "PROPERTY", "COMPONENT", "LABEL",
    "PIN",  "WIRE", "ANNOTATION", "SELECTION", "BACKGROUND", "VALUE", "BORDER",   "HIGHLIGHT",
};
constexpr std::size_t kBackgroundSlot = 13;

constexpr int kBlack = 0;
constexpr int kWhite = 0x00ffffff;

struct DefaultRow {
    std::string_view key;
    ObjectDefault value;
};

constexpr DefaultRow kDefaults[] = {
    {"NET", {12, 1}}, {"COMPONENT", {15, 0}}, {"ATTRIBUTE", {14, 0}}, {"LABEL", {15, 0}}, {"PIN", {3, 0}},
    {"BOX", {2, 0}},  {"LINE", {2, 0}},       {"CIRCLE", {2, 0}},     {"ARC", {2, 0}},    {"TEXT", {10, 0}},
};

constexpr unsigned kFillStyleBits = 5;
constexpr unsigned kFillStyleMask = (1U << kFillStyleBits) - 1;
constexpr unsigned kLineStyleMask = 7;
constexpr unsigned kOtherBitsMask = 0xffffff;

template <std::size_t size>
std::string_view keyOf(const std::array<std::string_view, size>& keys, int number) {
    return number >= 0 && static_cast<std::size_t>(number) < size ? keys[static_cast<std::size_t>(number)]
                                                                  : std::string_view();
}

std::optional<Graphics> readGraphics(const iAppConfiguration& appConfig, std::string_view key) {
    Graphics graphics;
    if (!appConfig.getGraphics(appConfig.handleOf(key), graphics))
        return std::nullopt;
    return graphics;
}

bool writeGraphics(iAppConfiguration& appConfig, std::string_view key, const Graphics& graphics) {
    return appConfig.setGraphics(key, graphics.visible, graphics.selectable, graphics.colour,
                                 graphics.fillStyle, graphics.lineStyle, graphics.lineThickness);
}

void fill(ObjectAttributes& attributes, const Graphics& graphics) {
    attributes.visible = static_cast<std::uint8_t>(graphics.visible);
    attributes.selectable = static_cast<std::uint8_t>(graphics.selectable);
    attributes.color = graphics.colour;
    attributes.fillStyle = static_cast<unsigned>(graphics.fillStyle) & kFillStyleMask;
    attributes.lineStyle = static_cast<unsigned>(graphics.lineStyle) & kLineStyleMask;
    attributes.thickness = graphics.lineThickness;
}

std::size_t printingSlot(std::string_view word) {
    const auto found = std::ranges::find(kPrintingWords, word);
    return found == kPrintingWords.end() ? 0 : static_cast<std::size_t>(found - kPrintingWords.begin());
}

/// At the base that the text's own prefix names. A slot that the list does not have is black.
int printingColor(const iAppConfiguration& appConfig, std::size_t slot) {
    std::vector<std::string> texts;
    getValues(appConfig, "PRINTINGCOLORS", texts);
    if (slot >= texts.size())
        return kBlack;
    return swapRedAndBlue(static_cast<int>(std::strtol(texts[slot].c_str(), nullptr, 0)));
}

CPrintingAccess::ObjectDefaults shippedDefaults() {
    CPrintingAccess::ObjectDefaults defaults;
    for (const auto& row : kDefaults)
        defaults.emplace(row.key, row.value);
    return defaults;
}

/// Reads colour, fill style and line style over those given, as far as there are numbers.
void scan(std::string_view text, ObjectDefault& value) {
    std::array<int, 3> numbers{value.color, static_cast<int>(value.packed & kFillStyleMask),
                               value.packed >> kFillStyleBits};
    std::istringstream stream{std::string(text)};
    stream.imbue(std::locale::classic());
    for (int& number : numbers) {
        int read = 0;
        if (!(stream >> read))
            break;
        number = read;
    }
    value.color = numbers[0];
    const auto lineStyle = static_cast<unsigned>(numbers[2]) & kLineStyleMask;
    value.packed = static_cast<std::uint8_t>(lineStyle << kFillStyleBits |
                                             (static_cast<unsigned>(numbers[1]) & kFillStyleMask));
}

/// Takes the lines one by one until every object was met. @return false if the text ends before.
bool readDefaults(std::string_view text, CPrintingAccess::ObjectDefaults& defaults) {
    std::size_t count = 0;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        auto line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        for (auto& [key, value] : defaults) {
            if (!line.starts_with(key))
                continue;
            // What is left may begin with another key, so that a line may speak of two. This is meant for
            // hosts, whose files have such lines.
            line.remove_prefix(key.size());
            scan(line, value);
            if (++count == defaults.size())
                return true;
        }
    }
    return false;
}

} // namespace

CPrintingAccess& CPrintingAccess::instance() {
    static CPrintingAccess access(iAppConfiguration::instance());
    return access;
}

CPrintingAccess::CPrintingAccess(iAppConfiguration& appConfig)
    : appConfig_(&appConfig), defaults_(shippedDefaults()), held_(kHeldObjects) {
}

std::string_view CPrintingAccess::objectKey(int number) noexcept {
    const bool isSecond = number >= kSecondFirstLayer && number < kSecondFirstLayer + kLayers;
    return keyOf(kObjectKeys, isSecond ? number - kSecondFirstLayer + kFirstLayer : number);
}

std::string_view CPrintingAccess::sheetKey(int number) noexcept {
    return keyOf(kSheetKeys, number);
}

float CPrintingAccess::getFloat(std::string_view key) const {
    return floatFromText(getString(key));
}

int CPrintingAccess::getInt(std::string_view key) const {
    return integerFromText(getString(key));
}

bool CPrintingAccess::getFlag(std::string_view key) const {
    Property property{std::string(key)};
    return appConfig_->getProperty(property) && !property.values.empty() && property.values.front() != "0";
}

std::string CPrintingAccess::getString(std::string_view key) const {
    std::string text;
    getValue(*appConfig_, std::string(key), text);
    return text;
}

bool CPrintingAccess::isReadOnly(std::string_view key) const {
    const auto flags = getReadOnlyFlags(key);
    return !flags.empty() && flags.front() != 0;
}

std::vector<std::uint8_t> CPrintingAccess::getReadOnlyFlags(std::string_view key) const {
    Property property{std::string(key)};
    appConfig_->getProperty(property);
    return property.readonly;
}

bool CPrintingAccess::getSize(std::string_view key, double& width, double& height) const {
    std::vector<std::string> texts;
    getValues(*appConfig_, std::string(key), texts);
    const bool isSize = texts.size() >= 2;
    width = isSize ? doubleFromText(texts[0]) : 0.0;
    height = isSize ? doubleFromText(texts[1]) : 0.0;
    return isSize;
}

bool CPrintingAccess::getSize(int sheet, double& width, double& height) const {
    return getSize(sheetKey(sheet), width, height);
}

bool CPrintingAccess::setFloat(std::string_view key, float value) {
    return std::isfinite(value) && setString(key, floatToText(value));
}

bool CPrintingAccess::setInt(std::string_view key, int value) {
    return setString(key, integerToText(value));
}

bool CPrintingAccess::setFlag(std::string_view key, bool value) {
    return setString(key, value ? "1" : "0");
}

bool CPrintingAccess::setString(std::string_view key, std::string_view value) {
    Property property{std::string(key)};
    property.values = {std::string(value)};
    return appConfig_->setProperty(property);
}

bool CPrintingAccess::setSize(std::string_view key, double width, double height) {
    if (!std::isfinite(width) || !std::isfinite(height))
        return false;
    Property property{std::string(key)};
    property.values = {decimalToText(width), decimalToText(height)};
    return appConfig_->setProperty(property);
}

bool CPrintingAccess::setSize(int sheet, double width, double height) {
    return setSize(sheetKey(sheet), width, height);
}

bool CPrintingAccess::getLayer(std::string_view key, LayerAttributes& attributes) const {
    const auto graphics = readGraphics(*appConfig_, key);
    if (!graphics)
        return false;
    attributes.color = graphics->colour;
    attributes.fillStyle = static_cast<unsigned>(graphics->fillStyle) & kFillStyleMask;
    attributes.lineStyle = static_cast<unsigned>(graphics->lineStyle) & kLineStyleMask;
    return true;
}

bool CPrintingAccess::getLayer(int number, LayerAttributes& attributes) const {
    return getLayer(objectKey(number), attributes);
}

bool CPrintingAccess::getObject(std::string_view key, ObjectAttributes& attributes) const {
    const auto graphics = readGraphics(*appConfig_, key);
    attributes.name = key;
    if (graphics)
        fill(attributes, *graphics);
    return graphics.has_value();
}

bool CPrintingAccess::getObject(int number, ObjectAttributes& attributes) const {
    if (holds_ == 0)
        return getObject(objectKey(number), attributes);
    if (number < 0 || number >= kHeldObjects) {
        attributes = {};
        return false;
    }
    const auto& held = held_[static_cast<std::size_t>(number)];
    const std::uint32_t otherBits = attributes.otherBits;
    attributes = held.attributes;
    attributes.otherBits = otherBits & kOtherBitsMask;
    return held.isKnown;
}

bool CPrintingAccess::setLayer(std::string_view key, const LayerAttributes& attributes) {
    auto graphics = readGraphics(*appConfig_, key);
    if (!graphics)
        return false;
    graphics->colour = attributes.color;
    graphics->fillStyle = attributes.fillStyle;
    graphics->lineStyle = attributes.lineStyle;
    return writeGraphics(*appConfig_, key, *graphics);
}

bool CPrintingAccess::setLayer(int number, const LayerAttributes& attributes) {
    return setLayer(objectKey(number), attributes);
}

bool CPrintingAccess::setObject(std::string_view key, const ObjectAttributes& attributes) {
    return writeGraphics(*appConfig_, key,
                         {attributes.visible, attributes.selectable, attributes.color,
                          static_cast<int>(attributes.fillStyle), static_cast<int>(attributes.lineStyle),
                          attributes.thickness});
}

bool CPrintingAccess::setObject(int number, const ObjectAttributes& attributes) {
    if (!setObject(objectKey(number), attributes))
        return false;
    if (holds_ != 0 && number < kHeldObjects)
        refreshHeld(number);
    return true;
}

bool CPrintingAccess::getPrintObject(std::string_view key, ObjectAttributes& attributes) const {
    attributes.name = key;
    const auto graphics = readGraphics(*appConfig_, key);
    fill(attributes, graphics.value_or(Graphics()));
    if (appConfig_->getNumber("PRINTING") == 1.0F) {
        const std::size_t slot = printingSlot(key);
        if (getFlag("PRINTFORCEBLACK"))
            attributes.color = slot == kBackgroundSlot ? kWhite : kBlack;
        else
            attributes.color = printingColor(*appConfig_, slot);
    }
    return graphics.has_value();
}

bool CPrintingAccess::getPrintObject(int number, ObjectAttributes& attributes) const {
    const auto key = objectKey(number);
    return !key.empty() && getPrintObject(key, attributes);
}

void CPrintingAccess::refreshHeld(int number) {
    auto& held = held_[static_cast<std::size_t>(number)];
    held.isKnown = getPrintObject(number, held.attributes);
}

void CPrintingAccess::holdObjects(bool hold) {
    if (hold && holds_ == 0) {
        for (int number = 0; number < kHeldObjects; ++number)
            refreshHeld(number);
    }
    holds_ += hold ? 1 : -1;
}

bool CPrintingAccess::loadDefaults(const std::string& path) {
    if (path == defaultsPath_)
        return true;
    const auto file = platform::resolveExisting(path);
    const auto text = platform::readFile(file.value_or(""));
    if (!text)
        return false;
    auto defaults = shippedDefaults();
    if (!readDefaults(*text, defaults))
        return false;
    defaults_ = std::move(defaults);
    defaultsPath_ = path;
    return true;
}

bool CPrintingAccess::isDefaultsChanged() const {
    return defaults_ != shippedDefaults();
}

} // namespace Orv
