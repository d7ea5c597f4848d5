#pragma once

#include <QtCore/QStringList>
#include <QtWidgets/QLabel>

namespace ovsettings {

/// A strip for notices that concern the whole dialog; most of the time it is empty. It uses the room that
/// other controls leave. What does not fit is in its tool tip.
class NoticeLabel : public QLabel {
    Q_OBJECT

public:
    explicit NoticeLabel(QWidget* parent = nullptr);

    /// A notice that is on show already is not added again.
    void addNotice(const QString& notice);
    void removeNotices();

    QSize sizeHint() const override { return {0, 0}; }
    QSize minimumSizeHint() const override { return {0, 0}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void setNotices(const QStringList& notices);

    QStringList notices_;
};

} // namespace ovsettings
