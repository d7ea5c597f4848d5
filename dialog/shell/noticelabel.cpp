#include "dialog/shell/noticelabel.h"

#include "dialog/widgets/stringconversion.h"
#include "platform/plaintext.h"

#include <QtGui/QAccessible>
#include <QtGui/QPainter>
#include <QtWidgets/QStyle>

namespace ovsettings {

NoticeLabel::NoticeLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

void NoticeLabel::addNotice(const QString& notice) {
    if (notices_.contains(notice))
        return;
    setNotices(notices_ + QStringList(notice));
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void NoticeLabel::removeNotices() {
    setNotices({});
}

void NoticeLabel::setNotices(const QStringList& notices) {
    notices_ = notices;
    const QString text = notices_.join(QLatin1Char('\n'));
    setText(platform::inItsOrder(inOneLine(notices_.join(QLatin1Char(' ')))));
    setToolTip(platform::toToolTip(text));
    setAccessibleName(text);
}

void NoticeLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
    style()->drawItemText(&painter, rect(), Qt::AlignVCenter | Qt::AlignLeading, palette(), isEnabled(),
                          shown, foregroundRole());
}

} // namespace ovsettings
