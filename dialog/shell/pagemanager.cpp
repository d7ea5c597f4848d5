#include "dialog/shell/pagemanager.h"

#include "dialog/shell/pagestarter.h"
#include "dialog/shell/settingsupdater.h"
#include "dialog/shell/settingsxmlreader.h"
#include "orv/projectconfiguration.h"
#include "ovsettings/settingspagecomponent.h"
#include "platform/paths.h"

#include <algorithm>
#include <utility>

namespace ovsettings {

namespace {

constexpr int kFactoryWithConfigurations = 2;

bool isDesigns(const CCategoryNode& node) {
    return dynamic_cast<const CPropertyPageSupplierProjects*>(node.supplier) != nullptr;
}

/// Those of the dialogs that are open, the innermost last.
std::vector<CPageManager*>& openManagers() {
    static std::vector<CPageManager*> managers;
    return managers;
}

} // namespace

/// What a supplier has under a page key.
struct CPageManager::Offer {
    CPropertyPageFactory* factory = nullptr;
    int kind = 0;
    bool hasPage = false;
};

/// What the dialog takes out of factories. Those of add-ins live as long as the process, and have it back for
/// the next dialog once all is out.
class CPageManager::Removed {
public:
    Removed() = default;
    Removed(const Removed&) = delete;
    Removed& operator=(const Removed&) = delete;
    ~Removed() {
        for (const auto& [factory, starters] : removed_)
            factory->addStarters(starters);
    }

    void hold(CPropertyPageFactory& factory, const std::string& key) {
        auto* table = dynamic_cast<CFactory*>(&factory);
        if (!table)
            return;
        if (const auto starter = table->starters().find(key); starter != table->starters().end())
            removed_[table].insert(*starter);
    }

private:
    std::map<CFactory*, CFactory::Starters> removed_;
};

CPageManager::CPageManager(Orv::iAppConfiguration& appConfig, Orv::CProjectConfiguration& projectConfig,
                           CSettingsUpdater& updater)
    : appConfig_(appConfig), projectConfig_(projectConfig), updater_(updater) {
    openManagers().push_back(this);
}

CPageManager::~CPageManager() {
    std::erase(openManagers(), this);
}

bool CPageManager::read(const std::string& path) {
    catalogueDirectory_ = platform::splitPath(path).directory;
    roots_ = CSettingsXmlReader(path).read();
    return true;
}

std::vector<Category> CPageManager::build() {
    std::vector<Category> built;
    for (const auto& root : roots_)
        buildNode(*root, 0, built);
    return built;
}

void CPageManager::buildNode(CCategoryNode& node, unsigned parentKey, std::vector<Category>& built) {
    node.supplier = supplierFor(node.localization);
    if (!node.supplier)
        return;
    if (auto* designs = dynamic_cast<CPropertyPageSupplierProjects*>(node.supplier)) {
        buildDesigns(*designs, parentKey, built);
        return;
    }
    const std::optional<Offer> offer = ask(*node.supplier, node.classid);
    if (!offer)
        node.supplier = nullptr; // one that threw is not asked again when the dialog goes
    if (!offer || !offer->hasPage)
        return;
    built.push_back({makeStarter(*offer->factory, node.classid, offer->kind), parentKey, node.name, true});
    const auto key = static_cast<unsigned>(built.size());
    for (const auto& child : node.children)
        buildNode(*child, key, built);
}

/// Asks for a page. What an add-in throws is told to the host, and the add-in gives no page: its fault
/// must not cost the user all other pages. @return nothing if it threw.
std::optional<CPageManager::Offer> CPageManager::ask(CPropertyPageSupplier& supplier,
                                                     const std::string& pageKey) {
    try {
        Offer offer;
        offer.factory = supplier.getFactory();
        if (!offer.factory)
            return offer;
        updater_.addUpdater(offer.factory->getUpdater());
        offer.hasPage = offer.factory->hasPage(pageKey);
        offer.kind = offer.hasPage ? offer.factory->factoryKind() : 0;
        // An add-in may answer 2 although its factory is no CFactoryEx. Such a factory cannot be given the
        // configuration objects.
        if (auto* configured = dynamic_cast<CFactoryEx*>(offer.factory);
            configured && offer.kind == kFactoryWithConfigurations)
            configure(*configured);
        return offer;
    } catch (...) {
        reportMissingPage(pageKey);
        return std::nullopt;
    }
}

void CPageManager::configure(CFactoryEx& factory) {
    configured_.insert(&factory);
    factory.setConfigurations(&appConfig_, &projectConfig_);
}

/// An add-in has one factory for all dialogs. Where this dialog was opened while another is up, its
/// configuration may end with it: the factory is given the outer dialog's again, which still has pages to
/// make.
void CPageManager::handBackFactories() {
    std::erase(openManagers(), this);
    for (CFactoryEx* factory : std::exchange(configured_, {})) {
        const auto outer = std::find_if(
            openManagers().rbegin(), openManagers().rend(),
            [factory](const CPageManager* manager) { return manager->configured_.contains(factory); });
        if (outer != openManagers().rend())
            (*outer)->configure(*factory);
    }
}

void CPageManager::buildDesigns(CPropertyPageSupplierProjects& supplier, unsigned parentKey,
                                std::vector<Category>& built) {
    std::vector<std::string> names;
    supplier.fetchNames(&projectConfig_, names);
    CFactoryEx* factory = supplier.getFactory(projectConfig_.topLevelProvider);
    if (!factory)
        return;
    updater_.addUpdater(factory->getUpdater());
    factory->setConfigurations(&appConfig_, &projectConfig_);
    for (const std::string& name : names)
        built.push_back({makeStarter(*factory, name, kFactoryWithConfigurations), parentKey, name, false});
}

CPropertyPageSupplier* CPageManager::supplierFor(const std::string& localization) {
    if (localization.empty())
        return nullptr;
    const auto [entry, isNew] = suppliers_.try_emplace(localization);
    if (!isNew)
        return entry->second.get();
    try {
        entry->second = makeSupplier(localization, catalogueDirectory_, &appConfig_, &projectConfig_);
    } catch (const ComponentError&) {
        throw; // to the host
    } catch (...) {
        reportMissingPage(localization);
    }
    return entry->second.get();
}

std::unique_ptr<CPageStarter> CPageManager::makeStarter(CPropertyPageFactory& factory,
                                                        const std::string& pageKey, int factoryKind) {
    if (factoryKind != kFactoryWithConfigurations)
        return std::make_unique<CPageStarter>(factory, pageKey);
    return std::make_unique<CPageStarterEx>(factory, pageKey, &appConfig_, &projectConfig_);
}

void CPageManager::release() {
    const auto suppliers = std::exchange(suppliers_, {});
    Removed removed;
    for (const auto& root : std::exchange(roots_, {}))
        releaseNode(*root, removed);
    handBackFactories(); // last: an add-in may throw here
}

void CPageManager::releaseNode(CCategoryNode& node, Removed& removed) {
    // The factory of the designs goes as a whole, with its supplier.
    if (isDesigns(node))
        return;
    CPropertyPageFactory* factory = node.supplier ? node.supplier->getFactory() : nullptr;
    if (!factory)
        return;
    removed.hold(*factory, node.name);
    factory->removePage(node.name);
    for (const auto& child : node.children)
        releaseNode(*child, removed);
}

} // namespace ovsettings
