#pragma once

#include <QtCore/QStringList>
#include <QtWidgets/QLabel>

namespace ovsettings {

/// A strip for what concerns the whole dialog, empty as a rule. It takes the room that is left and asks for
/// none; what does not fit is in its tool tip.
class CNoticeLabel : public QLabel {
    Q_OBJECT

public:
    explicit CNoticeLabel(QWidget* parent = nullptr);

    /// One that is there already is not said twice.
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
