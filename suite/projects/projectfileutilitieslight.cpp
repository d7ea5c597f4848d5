#include "suite/projectfile.h"

namespace NProjectTools {

CProjectFileUtilitiesLight::CProjectFileUtilitiesLight(const char* path) {
    if (path)
        openProjectFile(path);
}

CProjectFileUtilitiesLight::~CProjectFileUtilitiesLight() = default;

} // namespace NProjectTools
