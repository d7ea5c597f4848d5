#pragma once

#include "orv/metrics.h"
#include "ovsettings/export.h"
#include "store/resolutions.h"

#include <string>
#include <string_view>

namespace Orv {

class iAppConfiguration;

/// The display unit that the configuration names; inches for a name that is none.
OVSETTINGS_API Metrics::Unit getConfiguredUnit(const iAppConfiguration& appConfig);
/// No stored length changes with the unit. A locked unit stays as it is.
OVSETTINGS_API void setConfiguredUnit(iAppConfiguration& appConfig, Metrics::Unit unit);

/// Between a stored length, in units of configResolution, and the number shown in `unit`.
OVSETTINGS_API double toDisplay(long stored, Metrics::Unit unit);
OVSETTINGS_API long fromDisplay(double shown, Metrics::Unit unit);

/// The stored length that a text gives. The store may hand out exponent form, so the text is read as a
/// floating-point number, whatever the locale, and truncated; what follows the number is left out. No number
/// reads as 0, one beyond long as its limit.
OVSETTINGS_API long lengthFromText(std::string_view text);
OVSETTINGS_API std::string lengthToText(long stored);

/// The smallest step of a length control: one unit of the last decimal shown.
OVSETTINGS_API double lengthStep(Metrics::Unit unit);

} // namespace Orv
