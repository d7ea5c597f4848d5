#include "dialog/shell/propertypagesupplier.h"

#include "dialog/shell/internalpages.h"
#include "dialog/shell/toplevelfactory.h"
#include "ovsettings/settingspagecomponent.h"
#include "platform/componentregistry.h"
#include "platform/installation.h"
#include "platform/paths.h"
#include "platform/printable.h"
#include "platform/trim.h"
#include "suite/configuration.h"

#include <utility>

namespace ovsettings {

namespace {

void tell(const std::string& trouble) {
    Orv::IOvConfigurationManager::Instance().ReportError(platform::printable("OvSettings: " + trouble));
}

/// Loads a library of an add-in. A library that is there and cannot be loaded is told.
platform::SharedLibrary load(const std::string& name) {
    platform::SharedLibrary library(name);
    if (!library.defect().empty())
        tell(library.defect());
    return library;
}

/// Whether a library was built for this version of the interface. One that does not tell its version was
/// built without these headers, and is taken as fit.
bool fitsThisVersion(const platform::SharedLibrary& library, const std::string& name) {
    using Version = int (*)();
    const auto version = reinterpret_cast<Version>(library.symbol("ovsettingsInterfaceVersion"));
    const int built = version ? version() : kInterfaceVersion;
    if (built != kInterfaceVersion)
        tell(name + " was built for version " + std::to_string(built) +
             " of the add-in interface, this is version " + std::to_string(kInterfaceVersion));
    return built == kInterfaceVersion;
}

/// The class id in a catalogue's text "[{CLASSID}]". The length counts from the text's beginning, so that
/// with anything before the bracket too much is taken, which is no class id. It is meant, for the catalogues
/// of existing installations: an entry that has brought no category so far brings none.
std::string betweenBrackets(const std::string& text) {
    const auto open = text.find('[');
    const auto close = text.rfind(']');
    if (open == std::string::npos || close == std::string::npos || close == 0)
        return {};
    return text.substr(open + 1, close - 1);
}

/// Loads a registered component. It stays to the end of the process.
IComponent* createComponent(const std::string& classId) {
    const auto file = platform::findComponent(platform::installationDirectory(), classId);
    if (!file)
        tell(file.errorText());
    if (!file || file->empty())
        return nullptr;
    const platform::SharedLibrary library = load(*file);
    if (library && !fitsThisVersion(library, *file))
        return nullptr;
    using Create = IComponent* (*)(const char*);
    const auto create = reinterpret_cast<Create>(library.symbol("createComponent"));
    return create ? create(classId.c_str()) : nullptr;
}

/// What the loader is asked for. A bare name is passed on as it is; a relative path counts from the
/// catalogue's directory, and never from the current one, which may belong to a project of somebody else.
std::string libraryFile(const std::string& name, const std::string& catalogueDirectory) {
    if (platform::isBareName(name) || platform::isRooted(name))
        return name;
    return platform::MakeFilePath(catalogueDirectory, name);
}

} // namespace

ComponentError::ComponentError(const std::string& classId, long result)
    : std::runtime_error("component " + classId + " has no page factory: result " + std::to_string(result)),
      result_(result) {
}

ComponentError::~ComponentError() = default;

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
    if (refused_)
        return nullptr;
    if (!library_) {
        platform::SharedLibrary loaded = load(fileName_);
        refused_ = !loaded.defect().empty() || (loaded && !fitsThisVersion(loaded, fileName_));
        if (refused_ || !loaded)
            return nullptr;
        library_ = std::move(loaded);
    }
    using GetFactory = CPropertyPageFactory* (*)();
    const auto get = reinterpret_cast<GetFactory>(library_.symbol("getFactory"));
    return get ? get() : nullptr;
}

CPropertyPageSupplierCom::CPropertyPageSupplierCom(std::string localization)
    : localization_(std::move(localization)) {
    const auto classId = platform::parseClassId(betweenBrackets(localization_));
    IComponent* component = classId ? createComponent(*classId) : nullptr;
    if (!component)
        return;
    auto* pages =
        static_cast<ISettingsPageComponent*>(component->QueryInterface(ISettingsPageComponent::kInterfaceId));
    if (!pages)
        return;
    std::uintptr_t address = 0;
    if (const long result = pages->GetPageFactory(&address); result < 0)
        throw ComponentError(*classId, result);
    // The interface gives the address as a number. NOLINTNEXTLINE(performance-no-int-to-ptr)
    factory_ = reinterpret_cast<CPropertyPageFactory*>(address);
}

CPropertyPageSupplierProjects::CPropertyPageSupplierProjects()
    : factories_(std::make_unique<TopLevelFactories>()) {
}

CPropertyPageSupplierProjects::~CPropertyPageSupplierProjects() = default;

CPropertyPageFactory* CPropertyPageSupplierProjects::getFactory() {
    return getFactory(nullptr);
}

CFactoryEx* CPropertyPageSupplierProjects::getFactory(ITopLevelDialogProvider* provider) {
    return factories_->factoryOf(provider);
}

void CPropertyPageSupplierProjects::fetchNames(const Orv::CProjectConfiguration* projectConfig,
                                               std::vector<std::string>& names) {
    names = factories_->fetchNames(projectConfig);
}

std::unique_ptr<CPropertyPageSupplier> makeSupplier(const std::string& localization,
                                                    const std::string& catalogueDirectory,
                                                    Orv::iAppConfiguration* appConfig,
                                                    Orv::CProjectConfiguration* projectConfig) {
    if (localization == "internal")
        return std::make_unique<CPropertyPageSupplierInternal>(appConfig, projectConfig);
    if (localization == "projects")
        return std::make_unique<CPropertyPageSupplierProjects>();
    if (platform::trimBegin(localization, " \t").starts_with('['))
        return std::make_unique<CPropertyPageSupplierCom>(localization);
    return std::make_unique<CPropertyPageSupplierDLL>(libraryFile(localization, catalogueDirectory));
}

} // namespace ovsettings
