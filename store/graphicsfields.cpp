#include "store/graphicsfields.h"

#include "orv/appconfiguration.h"
#include "store/colors.h"
#include "store/numbers.h"

#include <algorithm>
#include <span>

namespace Orv {

namespace {

struct GraphicsField {
    int Graphics::*member;
    bool isColor;
};

constexpr GraphicsField kObjectFields[] = {
    {&Graphics::visible, false},   {&Graphics::selectable, false}, {&Graphics::colour, true},
    {&Graphics::fillStyle, false}, {&Graphics::lineStyle, false},  {&Graphics::lineThickness, false},
};
constexpr GraphicsField kLayerFields[] = {
    {&Graphics::colour, true},
    {&Graphics::fillStyle, false},
    {&Graphics::lineStyle, false},
};
constexpr GraphicsField kIctFields[] = {
    {&Graphics::colour, true},
    {&Graphics::fillStyle, true},
};

std::span<const GraphicsField> fieldsOf(int kind) {
    switch (kind) {
    case iAppConfiguration::KindObject:
        return kObjectFields;
    case iAppConfiguration::KindLayer:
        return kLayerFields;
    case iAppConfiguration::KindIctObject:
        return kIctFields;
    default:
        return {};
    }
}

} // namespace

Graphics graphicsFromFields(int kind, std::span<const std::string_view> values) {
    Graphics graphics;
    const auto fields = fieldsOf(kind);
    for (std::size_t i = 0; i < std::min(fields.size(), values.size()); ++i)
        graphics.*fields[i].member =
            fields[i].isColor ? colorFromText(values[i]) : integerFromText(values[i]);
    return graphics;
}

void printGraphics(int kind, const Graphics& graphics, std::vector<std::string>& values) {
    const auto fields = fieldsOf(kind);
    for (std::size_t i = 0; i < std::min(fields.size(), values.size()); ++i) {
        const int number = graphics.*fields[i].member;
        values[i] = fields[i].isColor ? colorToText(number) : integerToText(number);
    }
}

} // namespace Orv
