#include "details/shell/pagestarter.h"

#include "ovsettings/propertypagefactory.h"

#include <utility>

namespace ovsettings {

CPageStarter::CPageStarter(CPropertyPageFactory& factory, std::string pageKey)
    : factory_(factory), pageKey_(std::move(pageKey)) {
}

CPageStarter::~CPageStarter() = default;

CPropDialogTemplate* CPageStarter::create(QWidget* parent) {
    return factory_.createPage(pageKey_, parent);
}

CPageStarterEx::CPageStarterEx(CPropertyPageFactory& factory, std::string pageKey,
                               Orv::iAppConfiguration* appConfiguration,
                               Orv::CProjectConfiguration* projectConfiguration)
    : CPageStarter(factory, std::move(pageKey)),
      appConfig(appConfiguration),
      projectConfig(projectConfiguration) {
}

CPageStarterEx::~CPageStarterEx() = default;

} // namespace ovsettings
