#pragma once

#include "orv/metrics.h"

namespace iKDS {
class IObject;
}

namespace Orv {

/// The resolution in which a design object keeps its lengths; `low` for an object that does not say.
Metrics::Resolution readDesignResolution(const iKDS::IObject& object);

/// @return false if the design cannot be written.
bool writeDesignResolution(iKDS::IObject& object, Metrics::Resolution resolution);

} // namespace Orv
