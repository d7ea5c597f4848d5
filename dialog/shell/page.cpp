#include "dialog/shell/page.h"

namespace ovsettings {

Page::Page(QWidget* parent, const PageRow& row) : CPropDialogTemplateEx(row.templateId, parent), row_(row) {
    name = row.name;
    helpTopic = row.helpTopic;
    helpBook = row.helpBook();
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
