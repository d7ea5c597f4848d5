#include "store/unitglue.h"

namespace ovsettings {

namespace {

/// The library's start-up object: made once when the library is loaded.
class CSettings {
public:
    CSettings() { Orv::setSessionResolution(Orv::Metrics::Resolution(Orv::Metrics::Resolution::high)); }
};

const CSettings theSettings;

} // namespace

} // namespace ovsettings
