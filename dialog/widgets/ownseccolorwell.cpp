#include "dialog/widgets/ownseccolorwell.h"

#include "dialog/widgets/gdipainter.h"

#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QPushButton>

#include <algorithm>

namespace ovsettings {

namespace {

constexpr int kSquare = 20;
constexpr int kFrame = 3;
constexpr int kColumns = 8;
constexpr std::size_t kUsualPalette = 16;

bool isArrow(int key) {
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
}

class ColorSquare : public QAbstractButton {
public:
    ColorSquare(const QColor& color, bool isCurrent, QWidget* parent)
        : QAbstractButton(parent), color_(color) {
        setFocusPolicy(Qt::StrongFocus);
        setCheckable(true);
        setChecked(isCurrent);
        setAccessibleName(color.name());
        setToolTip(color.name());
    }

    QSize sizeHint() const override { return {kSquare, kSquare}; }

protected:
    void nextCheckState() override {}

    void keyPressEvent(QKeyEvent* event) override {
        if (isArrow(event->key()) || event->key() == Qt::Key_Escape)
            event->ignore();
        else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            click();
        else
            QAbstractButton::keyPressEvent(event);
    }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        if (hasFocus() || isChecked())
            painter.fillRect(rect(), palette().color(hasFocus() ? QPalette::Highlight : QPalette::Text));
        const QRect inside = rect().adjusted(kFrame, kFrame, -kFrame, -kFrame);
        painter.fillRect(inside.adjusted(-1, -1, 1, 1), palette().color(QPalette::Base));
        painter.fillRect(inside, color_);
        painter.setPen(palette().color(QPalette::Text));
        painter.drawRect(inside.adjusted(0, 0, -1, -1));
    }

private:
    QColor color_;
};

} // namespace

COwnSECColorWell::COwnSECColorWell(const std::vector<int>& palette, int current, QWidget* parent)
    : QFrame(parent, Qt::Popup),
      current_(current),
      columns_(palette.size() > kUsualPalette ? 2 * kColumns : kColumns) {
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setAutoFillBackground(true);
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(kFrame, kFrame, kFrame, kFrame);
    layout->setSpacing(1);
    for (const int color : palette)
        addColor(color);
    auto* other = new QPushButton(tr("Other..."), this);
    other->setAutoDefault(true); // outside of a dialog, Enter presses no other button
    connect(other, &QPushButton::clicked, this, &COwnSECColorWell::chooseOther);
    layout->addWidget(other, layout->rowCount(), 0, 1, columns_);
    buttons_.push_back(other);

    const auto focused =
        std::ranges::find_if(buttons_, [](const QAbstractButton* button) { return button->isChecked(); });
    (focused == buttons_.end() ? buttons_.front() : *focused)->setFocus();
}

void COwnSECColorWell::addColor(int color) {
    const auto at = static_cast<int>(buttons_.size());
    // Of several squares of one colour, the first is the current one.
    const bool isCurrent =
        color == current_ &&
        std::ranges::none_of(buttons_, [](const QAbstractButton* button) { return button->isChecked(); });
    auto* square = new ColorSquare(toQColor(color), isCurrent, this);
    connect(square, &QAbstractButton::clicked, this, [this, color] { choose(color); });
    static_cast<QGridLayout*>(layout())->addWidget(square, at / columns_, at % columns_);
    buttons_.push_back(square);
}

void COwnSECColorWell::dropDown(const QRect& below) {
    adjustSize();
    const QRect available = parentWidget()->screen()->availableGeometry();
    QPoint at(below.left(), below.bottom() + 1);
    if (at.y() + height() > available.bottom() + 1)
        at.setY(below.top() - height());
    at.setX(
        std::clamp(at.x(), available.left(), std::max(available.left(), available.right() + 1 - width())));
    at.setY(std::max(at.y(), available.top()));
    move(at);
    show();
}

void COwnSECColorWell::choose(int color) {
    const QPointer<COwnSECColorWell> self(this);
    hide();
    Q_EMIT chosen(color);
    if (self)
        close();
}

/// The well closes only after the dialog, whose choice it has to tell.
void COwnSECColorWell::chooseOther() {
    const QPointer<COwnSECColorWell> self(this);
    hide();
    QColorDialog dialog(toQColor(current_), parentWidget());
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    if (self && accepted)
        Q_EMIT chosen(toPacked(dialog.currentColor()));
    if (self)
        close();
}

void COwnSECColorWell::closeEvent(QCloseEvent* event) {
    QFrame::closeEvent(event);
    Q_EMIT closed();
}

void COwnSECColorWell::keyPressEvent(QKeyEvent* event) {
    if (isArrow(event->key()))
        moveFocus(event->key());
    else if (event->key() == Qt::Key_Escape)
        close();
    else
        QFrame::keyPressEvent(event);
}

void COwnSECColorWell::moveFocus(int key) {
    const auto focused =
        std::ranges::find_if(buttons_, [](const QAbstractButton* b) { return b->hasFocus(); });
    const auto last = static_cast<int>(buttons_.size()) - 1;
    const auto at = static_cast<int>(focused - buttons_.begin());
    const int step = key == Qt::Key_Up || key == Qt::Key_Down ? columns_ : 1;
    const int next = at + (key == Qt::Key_Up || key == Qt::Key_Left ? -step : step);
    // Down from the last row is the button below it; up in the first row stays.
    if (next >= 0)
        buttons_[static_cast<std::size_t>(std::min(next, last))]->setFocus();
}

} // namespace ovsettings
