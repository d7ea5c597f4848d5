#include "details/appcfg/unitglue.h"

#include "details/appcfg/appcfg.h"
#include "orv/appconfiguration.h"

#include <cmath>
#include <limits>
#include <locale.h>
#include <stdlib.h>

namespace Orv {

namespace {

// What atof gives in the classic locale. from_chars reports a number too large and one too small alike, and
// the two read as different lengths.
double numberFromText(std::string_view text) {
    static const locale_t kClassic = newlocale(LC_ALL_MASK, "C", nullptr);
    return strtod_l(std::string(text).c_str(), nullptr, kClassic);
}

} // namespace

Metrics::Unit getConfiguredUnit(const iAppConfiguration& appConfig) {
    std::string abbreviation;
    getValue(appConfig, Metrics::UnitTraits::GetUnitCfgKey(), abbreviation);
    return Metrics::FindUnitByAbbreviation(abbreviation);
}

void setConfiguredUnit(iAppConfiguration& appConfig, Metrics::Unit unit) {
    setValue(appConfig, Metrics::UnitTraits::GetUnitCfgKey(), Metrics::UnitTraits(unit).Abbreviation());
}

double toDisplay(long stored, Metrics::Unit unit) {
    return Metrics::Convert(stored, configResolution()).To(unit);
}

long fromDisplay(double shown, Metrics::Unit unit) {
    return Metrics::Convert(shown, unit).To(configResolution());
}

long lengthFromText(std::string_view text) {
    const double number = numberFromText(text);
    if (std::isnan(number))
        return 0;
    if (number >= static_cast<double>(std::numeric_limits<long>::max()))
        return std::numeric_limits<long>::max();
    if (number <= static_cast<double>(std::numeric_limits<long>::min()))
        return std::numeric_limits<long>::min();
    return static_cast<long>(number);
}

std::string lengthToText(long stored) {
    return std::to_string(stored);
}

double lengthStep(Metrics::Unit unit) {
    double step = 1.0;
    for (int decimals = Metrics::UnitTraits(unit).Precision(); decimals > 0; --decimals)
        step /= 10.0;
    return step;
}

} // namespace Orv
