#include "store/designresolution.h"

#include "suite/designdatabase.h"
#include "suite/propertymangler.h"

#include <string>

namespace Orv {

namespace {

using Metrics::Resolution;

std::string resolutionAttribute() {
    std::string name;
    Utils::CPropertyMangler::Mangle(Resolution::GetResolutionSpecAttribute(), DataModel::PropertyType::text,
                                    name);
    return name;
}

} // namespace

Resolution readDesignResolution(const iKDS::IObject& object) {
    std::string text;
    if (!object.GetTextAttribute(resolutionAttribute(), text))
        return Resolution::low;
    return Resolution(text);
}

bool writeDesignResolution(iKDS::IObject& object, Resolution resolution) {
    return object.SetTextAttribute(resolutionAttribute(), static_cast<const char*>(resolution));
}

} // namespace Orv
