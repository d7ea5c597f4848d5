#include "details/shell/propertypagesupplier.h"

#include "details/shell/internalpages.h"

#include <utility>

namespace ovsettings {

CPropertyPageSupplierInternal::CPropertyPageSupplierInternal(Orv::iAppConfiguration* appConfig,
                                                             Orv::CProjectConfiguration* projectConfig) {
    factory_.setConfigurations(appConfig, projectConfig);
    registerInternalPages(factory_, projectConfig);
}

CPropertyPageFactory* CPropertyPageSupplierInternal::getFactory() {
    return &factory_;
}

CPropertyPageSupplierDLL::CPropertyPageSupplierDLL(std::string fileName) : fileName_(std::move(fileName)) {
}

CPropertyPageFactory* CPropertyPageSupplierDLL::getFactory() {
    if (!library_)
        library_ = platform::SharedLibrary(fileName_);
    using GetFactory = CPropertyPageFactory* (*)();
    const auto get = reinterpret_cast<GetFactory>(library_.symbol("getFactory"));
    return get ? get() : nullptr;
}

std::unique_ptr<CPropertyPageSupplier> makeSupplier(const std::string& localization,
                                                    Orv::iAppConfiguration* appConfig,
                                                    Orv::CProjectConfiguration* projectConfig) {
    if (localization == "internal")
        return std::make_unique<CPropertyPageSupplierInternal>(appConfig, projectConfig);
    // Not file names: a design branch, and the class id of a component. No supplier serves either here, so
    // that their categories do not appear.
    const auto first = localization.find_first_not_of(" \t");
    if (localization == "projects" || (first != std::string::npos && localization[first] == '['))
        return nullptr;
    return std::make_unique<CPropertyPageSupplierDLL>(localization);
}

} // namespace ovsettings
