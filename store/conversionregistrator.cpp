#include "store/conversionregistrator.h"

namespace Orv::Metrics::_UTImpl {

void ConversionRegistrator::walk(std::span<iKDS::IObject* const> objects) {
    for (iKDS::IObject* object : objects) {
        enter(*object);
        visit(*object);
    }
}

} // namespace Orv::Metrics::_UTImpl
