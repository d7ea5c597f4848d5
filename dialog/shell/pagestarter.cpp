#include "dialog/shell/pagestarter.h"

#include "ovsettings/propertypagefactory.h"
#include "platform/printable.h"
#include "suite/configuration.h"

#include <exception>
#include <utility>

namespace ovsettings {

CPageStarter::CPageStarter(CPropertyPageFactory& factory, std::string pageKey)
    : factory_(factory), pageKey_(std::move(pageKey)) {
}

CPageStarter::~CPageStarter() = default;

CPropDialogTemplate* CPageStarter::create(QWidget* parent) {
    try {
        return factory_.createPage(pageKey_, parent);
    } catch (...) {
        reportMissingPage(pageKey_);
        return nullptr;
    }
}

CPageStarterEx::CPageStarterEx(CPropertyPageFactory& factory, std::string pageKey,
                               Orv::iAppConfiguration* appConfiguration,
                               Orv::CProjectConfiguration* projectConfiguration)
    : CPageStarter(factory, std::move(pageKey)),
      appConfig(appConfiguration),
      projectConfig(projectConfiguration) {
}

CPageStarterEx::~CPageStarterEx() = default;

void reportMissingPage(const std::string& pageKey) {
    std::string cause = "unknown exception";
    try {
        throw;
    } catch (const std::exception& failure) {
        cause = failure.what();
    } catch (...) {
    }
    Orv::IOvConfigurationManager::Instance().ReportError(
        platform::printable("OvSettings: no page " + pageKey + ": " + cause));
}

} // namespace ovsettings
