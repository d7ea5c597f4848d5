#include "dialog/shell/page.h"

#include "dialog/widgets/settingtip.h"

#include <QtGui/QHelpEvent>

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

/// Tool tips of settings. They are laid together only now: the unit and the locks may be others by then.
bool Page::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::ToolTip || !appConfig_)
        return CPropDialogTemplateEx::eventFilter(watched, event);
    return showSettingTip(static_cast<QWidget&>(*watched), static_cast<const QHelpEvent&>(*event),
                          *appConfig_);
}

bool Page::onOk() {
    return onApply();
}

} // namespace ovsettings
