#pragma once

#include "orv/metrics.h"

namespace Orv {

/// The resolutions in force. The session's is `low` until the library has started; the configuration's and
/// the exchange's begin as `high`, the legacy one is always `low`.
void setSessionResolution(Metrics::Resolution resolution);
Metrics::Resolution sessionResolution();
void setConfigResolution(Metrics::Resolution resolution);
Metrics::Resolution configResolution();
void setExchangeResolution(Metrics::Resolution resolution);
Metrics::Resolution exchangeResolution();
Metrics::Resolution legacyResolution();

/// A stored length from one of them to another, rounded half away from zero.
long configToSession(long value);
long sessionToConfig(long value);
long exchangeToSession(long value);
long sessionToExchange(long value);
long legacyToSession(long value);

/// Resolutions of data that is read nested in other data. Popping an empty stack does nothing; the top of an
/// empty stack is the session resolution.
void pushResolution(Metrics::Resolution resolution);
void popResolution();
Metrics::Resolution topResolution();

/// A value from the resolution on top of the stack to the session's; unchanged if the stack is empty.
long topToSession(long value);

} // namespace Orv
