#include "store/record.h"

#include "store/catalogue.h"
#include "store/graphicsfields.h"
#include "store/kinds.h"
#include "store/numbers.h"

namespace Orv {

const std::vector<Record>& defaultRecords() {
    static const std::vector<Record> rows = [] {
        std::vector<Record> made;
        made.reserve(kCatalogueSize);
        for (const auto& row : catalogue()) {
            iAppConfiguration::Property property{std::string(row.key)};
            property.defaults = cutFields(row.defaultText);
            property.values = property.defaults;
            property.readonly.resize(property.values.size());
            property.kind = row.kind;
            const auto fields = property.values.size();
            made.push_back({std::move(property), std::vector<Origin>(fields)});
        }
        return made;
    }();
    return rows;
}

std::uint8_t fieldBit(int kind, std::size_t field) {
    return static_cast<std::uint8_t>(kindTraits(kind).storage == Storage::group ? 1U << field : 1U);
}

void normaliseFields(int kind, std::vector<std::string>& values) {
    const auto cache = kindTraits(kind).cache;
    if (cache == Cache::number && !values.empty())
        values.front() = floatToText(floatFromText(values.front()));
    else if (cache == Cache::graphics)
        printGraphics(kind, graphicsFromFields(kind, values), values);
}

} // namespace Orv
