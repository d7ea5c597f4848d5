#include "ovsettings/propertypagefactory.h"

#include "ovsettings/propdialogtemplate.h"

#include <utility>

namespace ovsettings {

Orv::IUpdater* CPropertyPageFactory::getUpdater() {
    return nullptr;
}

int CPropertyPageFactory::factoryKind() {
    return 0;
}

CPropDialogTemplate* CFactory::CDialogStarter::create(QWidget*) {
    return page;
}

CFactory::CFactory() = default;

CFactory::~CFactory() = default;

CPropDialogTemplate* CFactory::createPage(const std::string& pageKey, QWidget* parent) {
    return makePage(pageKey, parent, [](CPropDialogTemplate&) {});
}

CPropDialogTemplate* CFactory::makePage(const std::string& pageKey, QWidget* parent,
                                        const std::function<void(CPropDialogTemplate&)>& prepare) {
    const auto found = starters_.find(pageKey);
    if (found == starters_.end())
        return nullptr;
    const std::shared_ptr<CBaseDialogStarter> starter = found->second;
    CPropDialogTemplate* page = starter->create(parent);
    if (!page)
        return nullptr;
    try {
        prepare(*page);
        page->createWindow(parent);
    } catch (...) {
        // Some starters keep their page and give it again at the next attempt. Any other page was made just
        // now, and nobody else knows of it.
        if (const auto* kept = dynamic_cast<const CDialogStarter*>(starter.get()); kept && kept->page != page)
            delete page;
        throw;
    }
    return page;
}

void CFactory::removePage(const std::string& pageKey) {
    starters_.erase(pageKey);
}

bool CFactory::hasPage(const std::string& pageKey) {
    return starters_.contains(pageKey);
}

int CFactory::factoryKind() {
    return 1;
}

void CFactory::addStarter(const std::string& pageKey, std::unique_ptr<CBaseDialogStarter> starter) {
    starters_.insert_or_assign(pageKey, std::move(starter));
}

void CFactory::addStarters(const Starters& starters) {
    starters_.insert(starters.begin(), starters.end());
}

CPropDialogTemplate* CFactoryEx::createPage(const std::string& pageKey, QWidget* parent) {
    return createPage(pageKey, parent, appConfig_, projectConfig_);
}

CPropDialogTemplate* CFactoryEx::createPage(const std::string& pageKey, QWidget* parent,
                                            Orv::iAppConfiguration* appConfig,
                                            Orv::CProjectConfiguration* projectConfig) {
    return makePage(pageKey, parent, [appConfig, projectConfig](CPropDialogTemplate& page) {
        if (auto* configured = dynamic_cast<CPropDialogTemplateEx*>(&page)) {
            configured->setAppConfiguration(appConfig);
            configured->setProjectConfiguration(projectConfig);
        }
    });
}

int CFactoryEx::factoryKind() {
    return 2;
}

void CFactoryEx::setConfigurations(Orv::iAppConfiguration* appConfig,
                                   Orv::CProjectConfiguration* projectConfig) {
    appConfig_ = appConfig;
    projectConfig_ = projectConfig;
}

} // namespace ovsettings
