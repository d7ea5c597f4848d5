#include "store/typedcache.h"

#include "store/catalogue.h"
#include "store/graphicsfields.h"
#include "store/kinds.h"
#include "store/numbers.h"

#include <algorithm>

namespace Orv {

namespace {

std::vector<std::string_view> viewsOf(const std::vector<std::string>& texts) {
    return {texts.begin(), texts.end()};
}

} // namespace

TypedCache::TypedCache()
    : numbers_(catalogue().size()),
      graphics_(catalogue().size()),
      hasNumber_(catalogue().size()),
      hasGraphics_(std::make_unique<bool[]>(catalogue().size())) {
}

void TypedCache::restart() {
    static const TypedCache defaults = [] {
        TypedCache made;
        for (std::size_t row = 0; row < catalogue().size(); ++row)
            made.refresh(row, cutFields(catalogue()[row].defaultText));
        return made;
    }();
    std::ranges::copy(defaults.numbers_, numbers_.begin());
    std::ranges::copy(defaults.graphics_, graphics_.begin());
    std::copy_n(defaults.hasGraphics_.get(), graphics_.size(), hasGraphics_.get());
    hasNumber_ = defaults.hasNumber_;
}

void TypedCache::refresh(std::size_t row, std::span<const std::string_view> fields) {
    const int kind = catalogue()[row].kind;
    switch (kindTraits(kind).cache) {
    case Cache::none:
        break;
    case Cache::number:
        numbers_[row] = fields.empty() ? 0.0F : floatFromText(fields.front());
        hasNumber_[row] = true;
        break;
    case Cache::graphics:
        graphics_[row] = graphicsFromFields(kind, fields);
        hasGraphics_[row] = true;
        break;
    }
}

void TypedCache::refresh(std::size_t row, const std::vector<std::string>& fields) {
    refresh(row, viewsOf(fields));
}

void TypedCache::print(std::size_t row, iAppConfiguration::Property& property) const {
    if (hasNumber(row) && !property.values.empty())
        property.values.front() = floatToText(numbers_[row]);
    else if (hasGraphics(row))
        printGraphics(catalogue()[row].kind, graphics_[row], property.values);
}

} // namespace Orv
