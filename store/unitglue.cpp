#include "store/unitglue.h"

#include "orv/appconfiguration.h"
#include "store/appcfg.h"
#include "store/numbers.h"

#include <limits>

namespace Orv {

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
    const double number = doubleFromText(text);
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
