#pragma once

#include "orv/metrics.h"
#include "ovsettings/export.h"

namespace Orv {

/// The resolutions in force. The session's is `high` from the loading of the dialog's library on, and `low`
/// before it, and so all along in a program that has the store alone; the configuration's and the exchange's
/// begin as `high`, the legacy one is always `low`.
OVSETTINGS_API void setSessionResolution(Metrics::Resolution resolution);
OVSETTINGS_API Metrics::Resolution sessionResolution();
OVSETTINGS_API void setConfigResolution(Metrics::Resolution resolution);
OVSETTINGS_API Metrics::Resolution configResolution();
OVSETTINGS_API void setExchangeResolution(Metrics::Resolution resolution);
OVSETTINGS_API Metrics::Resolution exchangeResolution();
OVSETTINGS_API Metrics::Resolution legacyResolution();

/// A stored length from one of them to another, rounded half away from zero.
OVSETTINGS_API long configToSession(long value);
OVSETTINGS_API long sessionToConfig(long value);
OVSETTINGS_API long exchangeToSession(long value);
OVSETTINGS_API long sessionToExchange(long value);
OVSETTINGS_API long legacyToSession(long value);

/// Resolutions of data that is read nested in other data. Popping an empty stack does nothing; the top of an
/// empty stack is the session resolution.
OVSETTINGS_API void pushResolution(Metrics::Resolution resolution);
OVSETTINGS_API void popResolution();
OVSETTINGS_API Metrics::Resolution topResolution();

/// A value from the resolution on top of the stack to the session's; unchanged if the stack is empty.
OVSETTINGS_API long topToSession(long value);

} // namespace Orv
