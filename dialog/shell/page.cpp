#include "dialog/shell/page.h"

namespace ovsettings {

Page::Page(QWidget* parent, unsigned templateId, const char* pageName, const char* topic)
    : CPropDialogTemplateEx(templateId, parent) {
    name = pageName;
    helpTopic = topic;
    if (!helpTopic.empty())
        helpBook = "orvane_ref";
}

Page::~Page() = default;

void Page::setAppConfiguration(Orv::iAppConfiguration* appConfig) {
    appConfig_ = appConfig;
}

void Page::setProjectConfiguration(Orv::CProjectConfiguration* projectConfig) {
    projectConfig_ = projectConfig;
}

bool Page::onOk() {
    return onApply();
}

} // namespace ovsettings
