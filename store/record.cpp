#include "store/record.h"

#include "store/catalogue.h"
#include "store/graphicsfields.h"
#include "store/kinds.h"
#include "store/numbers.h"

namespace Orv {

void assignDefault(std::size_t row, Record& record) {
    const auto& entry = catalogue()[row];
    auto& property = record.property;
    property.name = entry.key;
    property.kind = entry.kind;
    cutFields(entry.defaultText, property.defaults);
    property.values = property.defaults;
    property.readonly.assign(property.values.size(), 0);
    record.origins.assign(property.values.size(), Origin());
    record.isFlushed = false;
    record.hasOwnDefaults = false;
}

std::uint8_t fieldBit(int kind, std::size_t field) {
    return static_cast<std::uint8_t>(kindTraits(kind).storage == Storage::group ? 1U << field : 1U);
}

void normaliseFields(int kind, std::vector<std::string>& values) {
    const auto cache = kindTraits(kind).cache;
    if (cache == Cache::number && !values.empty())
        values.front() = floatToText(floatFromText(values.front()));
    else if (cache == Cache::graphics)
        printGraphics(kind,
                      graphicsFromFields(kind, std::vector<std::string_view>(values.begin(), values.end())),
                      values);
}

} // namespace Orv
