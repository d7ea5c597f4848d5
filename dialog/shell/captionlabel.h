#pragma once

#include <QtWidgets/QLabel>

namespace ovsettings {

/// The coloured bar above the page with the category's caption. It draws its text itself; the label's own
/// text stays empty.
class CCaptionLabel : public QLabel {
    Q_OBJECT

public:
    explicit CCaptionLabel(QWidget* parent = nullptr);

    void setCaption(const QString& caption);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString caption_;
};

} // namespace ovsettings
