#include "dialog/pages/editor/sheetsizes.h"

#include "dialog/widgets/stringconversion.h"
#include "orv/metrics.h"
#include "store/appcfg.h"
#include "store/numbers.h"
#include "store/resolutions.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <limits>
#include <string_view>
#include <unordered_set>

namespace ovsettings {

namespace {

using Orv::Metrics::Convert;
using Orv::Metrics::Resolution;
using Orv::Metrics::Unit;

struct NamedSize {
    const char* label;
    const char* key;
};

constexpr std::array<NamedSize, kFirstBorder> kNamedSizes{{
    {"A", "A_SIZE_HR"},
    {"B", "B_SIZE_HR"},
    {"C", "C_SIZE_HR"},
    {"D", "D_SIZE_HR"},
    {"E", "E_SIZE_HR"},
    {"A4", "A4_SIZE_HR"},
    {"A3", "A3_SIZE_HR"},
    {"A2", "A2_SIZE_HR"},
    {"A1", "A1_SIZE_HR"},
    {"A0", "A0_SIZE_HR"},
}};

constexpr const char* kCustomLabel = QT_TRANSLATE_NOOP("ovsettings::CNewSheetDialog", "Custom");

constexpr std::string_view kSheet = "SHEET";
constexpr std::string_view kFirstSheet = "SHEET1";

/// Borders have their size in inches in their names, whatever the unit in use.
constexpr Unit::Id kBorderUnit = Unit::inch;
/// One millimetre.
constexpr long kMetricStep = 100000;

/// The fractions of the metric sizes fall away: users know the sizes so.
SheetSize storedSize(const Orv::iAppConfiguration& appConfig, std::string label, const char* key) {
    std::vector<std::string> sides;
    Orv::getValues(appConfig, key, sides);
    sides.resize(2);
    return {std::move(label), Orv::longFromText(sides[0]), Orv::longFromText(sides[1]), {}};
}

/// The nearest whole multiple that is a long; a half goes up.
long toMetricStep(long length) {
    long steps = length / kMetricStep;
    long rest = length % kMetricStep;
    if (rest < 0) {
        --steps;
        rest += kMetricStep;
    }
    if (2 * rest >= kMetricStep)
        ++steps;
    using Limits = std::numeric_limits<long>;
    return std::clamp(steps, Limits::min() / kMetricStep, Limits::max() / kMetricStep) * kMetricStep;
}

/// Adds the sizes of border symbols, "34x22SHEET" for example. Of a first sheet's symbol and that of the next
/// sheets, which is named alike but for a last "1", one is taken. A name with unusable numbers is a size of
/// 0.
class BorderSizes {
public:
    BorderSizes(std::vector<SheetSize>& sizes, bool roundToMetric)
        : sizes_(sizes), roundToMetric_(roundToMetric) {}

    void add(std::string name) {
        const auto cross = name.find('x');
        const auto sheet = name.find(kSheet);
        if (cross == std::string::npos || sheet == std::string::npos)
            return;
        if (name.find(kFirstSheet) != std::string::npos) {
            name.pop_back();
            if (taken_.contains(name))
                return;
        }
        const std::string_view text = name;
        const auto height = std::min(cross + 1, sheet);
        const std::array inches{static_cast<double>(Orv::longFromText(text.substr(0, cross))),
                                static_cast<double>(Orv::longFromText(text.substr(height, sheet - height)))};
        taken_.insert(name);
        sizes_.push_back(
            {name, length(inches[0]), length(inches[1]), {stored(inches[0]), stored(inches[1])}});
    }

private:
    static std::string stored(double inches) {
        return std::to_string(Convert(inches, kBorderUnit).To(Resolution(Resolution::high)));
    }

    long length(double inches) const {
        const long exact = Convert(inches, kBorderUnit).To(Orv::configResolution());
        return roundToMetric_ ? toMetricStep(exact) : exact;
    }

    std::vector<SheetSize>& sizes_;
    bool roundToMetric_;
    std::unordered_set<std::string> taken_;
};

} // namespace

bool SheetSize::hasSides(long width, long height) const {
    return (first == width && second == height) || (first == height && second == width);
}

std::vector<SheetSize> sheetSizes(const Orv::iAppConfiguration& appConfig,
                                  const Orv::IBorderSymbols::Table* borders) {
    std::vector<SheetSize> sizes;
    sizes.reserve(kNamedSizes.size() + (borders ? borders->size() : 0) + 1);
    for (const NamedSize& named : kNamedSizes)
        sizes.push_back(storedSize(appConfig, named.label, named.key));
    if (borders) {
        std::string unit;
        Orv::getValue(appConfig, Orv::Metrics::UnitTraits::GetUnitCfgKey(), unit);
        BorderSizes borderSizes(sizes, unit != "in");
        for (const auto& border : *borders)
            borderSizes.add(border.first);
    }
    const QString custom = QCoreApplication::translate("ovsettings::CNewSheetDialog", kCustomLabel);
    sizes.push_back(storedSize(appConfig, toUtf8(custom), kCustomSizeKey));
    return sizes;
}

} // namespace ovsettings
