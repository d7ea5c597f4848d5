#include "dialog/shell/page.h"

namespace ovsettings {

CPage::CPage(QWidget* parent, unsigned templateId, const char* pageName, const char* topic)
    : CPropDialogTemplateEx(templateId, parent) {
    name = pageName;
    helpTopic = topic;
    if (!helpTopic.empty())
        helpBook = "orvane_ref";
}

CPage::~CPage() = default;

void CPage::setAppConfiguration(Orv::iAppConfiguration* appConfig) {
    appConfig_ = appConfig;
}

void CPage::setProjectConfiguration(Orv::CProjectConfiguration* projectConfig) {
    projectConfig_ = projectConfig;
}

bool CPage::onOk() {
    return onApply();
}

} // namespace ovsettings
