#include "orv/colorscheme.h"

#include "platform/paths.h"
#include "platform/readfile.h"
#include "schemes/schemefile.h"
#include "store/colors.h"

namespace Orv {

namespace {

const char* textOf(ColorSchemeError error) {
    switch (error) {
    case ColorSchemeError::noPaletteNumber:
        return "the palette number is missing";
    case ColorSchemeError::paletteNumberOutOfRange:
        return "the palette number is not between 0 and 15";
    case ColorSchemeError::noColor:
        return "the colour is missing";
    case ColorSchemeError::noLayerNumber:
        return "the layer's palette number is missing";
    case ColorSchemeError::layerNumberOutOfRange:
        return "the layer's palette number is not between 0 and 15";
    case ColorSchemeError::noSecondNumber:
        return "the layer's second number is missing";
    case ColorSchemeError::noThirdNumber:
        return "the layer's third number is missing";
    case ColorSchemeError::tooManySchemes:
        return "there are more than 65536 schemes";
    case ColorSchemeError::none:
    case ColorSchemeError::unreadable:
        break;
    }
    return "";
}

} // namespace

ColorSchemes readColorSchemes(const std::string& path) {
    ColorSchemes result;
    const auto bytes = platform::readFile(platform::resolveExisting(path).value_or(path));
    if (!bytes) {
        result.error = ColorSchemeError::unreadable;
        result.reason = bytes.errorText();
        return result;
    }
    ovsettings::SchemeReading reading = ovsettings::readSchemes(*bytes);
    result.schemes = std::move(reading.schemes);
    result.error = reading.error;
    result.line = reading.line;
    if (result.error != ColorSchemeError::none)
        result.reason = path + ":" + std::to_string(result.line) + ": " + textOf(result.error);
    return result;
}

std::string packedColorText(std::int32_t color) {
    return colorToText(color);
}

const char* colorSchemeLayer(std::size_t slot) noexcept {
    const bool hasLine = slot >= ovsettings::kFirstLayerSlot && slot < ovsettings::kPaletteSize;
    return hasLine ? ovsettings::kSlotWords[slot].data() : "";
}

} // namespace Orv
