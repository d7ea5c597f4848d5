#include "dialog/widgets/grid/griddelegate.h"

#include "dialog/widgets/grid/gridediting.h"
#include "dialog/widgets/grid/gridmodel.h"
#include "dialog/widgets/stringconversion.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtGui/QValidator>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>

namespace ovsettings {

namespace {

constexpr int kColorMargin = 3;
constexpr int kArrowSize = 10;
constexpr int kArrowMargin = 4;

/// Lets only texts through that fit a mask. A text that does not fit and was there before the edit may stay,
/// or be shortened until it does.
class MaskValidator : public QValidator {
public:
    MaskValidator(const QString& mask, QString original, QObject* parent)
        : QValidator(parent), mask_(mask), original_(std::move(original)) {}

    State validate(QString& text, int&) const override {
        if (fits(text) || text == original_)
            return Acceptable;
        return !fits(original_) && text.size() < original_.size() ? Intermediate : Invalid;
    }

private:
    bool fits(const QString& text) const {
        qsizetype at = 0;
        for (const QChar placeholder : mask_) {
            const bool isDigit = placeholder == QLatin1Char('#');
            if (at < text.size() &&
                (isDigit ? text[at] >= u'0' && text[at] <= u'9' : text[at] == placeholder))
                ++at;
        }
        return at == text.size();
    }

    QString mask_;
    QString original_;
};

/// Ends the edit of its cell when the list closes: with another choice, or with the one there was. Where a
/// text may be typed, a list that is closed without a choice leaves room for that.
class CellList : public QComboBox {
public:
    CellList(IGridEditing& grid, QWidget* parent) : QComboBox(parent), grid_(grid) { setFrame(false); }

    void showPopup() override {
        before_ = currentText();
        QComboBox::showPopup();
    }

    void hidePopup() override {
        const bool wasOpen = view()->isVisible();
        QComboBox::hidePopup();
        if (!wasOpen)
            return;
        // The choice is taken over only after this; and by then the edit may have ended in another way.
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (isVisible() && (!isEditable() || currentText() != before_))
                    grid_.endEdit();
            },
            Qt::QueuedConnection);
    }

private:
    IGridEditing& grid_;
    QString before_;
};

QWidget* makeList(IGridEditing& grid, QWidget* parent, const GridModel::Cell& cell) {
    auto* list = new CellList(grid, parent);
    list->addItems(cell.style.choices);
    list->setPlaceholderText(cell.text);
    if (cell.style.typed) {
        list->setEditable(true);
        list->setInsertPolicy(QComboBox::NoInsert);
        list->setCompleter(nullptr); // it would put a choice in the place of what is typed
    }
    list->view()->setMinimumWidth(cell.style.listWidth);
    return list;
}

QWidget* makeEdit(QWidget* parent, const GridModel::Cell& cell) {
    auto* edit = new QLineEdit(parent);
    edit->setFrame(false);
    if (!cell.style.mask.isEmpty())
        edit->setValidator(new MaskValidator(cell.style.mask, cell.text, edit));
    return edit;
}

/// An editor's list is a window of its own, but the editor's child.
bool isWithin(const QWidget* widget, const QWidget* editor) {
    while (widget && widget != editor)
        widget = widget->parentWidget();
    return widget != nullptr;
}

/// For the outline of check boxes, which styles derive from the window's colour: on a dark base that could
/// hardly be seen.
QColor outlineColor(const QPalette& palette) {
    const QColor text = palette.color(QPalette::Text), base = palette.color(QPalette::Base);
    const auto mixed = [](int of, int with) {
        return (3 * of + 2 * with) / 5;
    };
    return QColor(mixed(text.red(), base.red()), mixed(text.green(), base.green()),
                  mixed(text.blue(), base.blue()));
}

QRect choiceRect(const QRect& cell, const GridCellStyle& style, int choice) {
    const int count = static_cast<int>(style.choices.size());
    if (style.orientation == Qt::Horizontal)
        return QRect(cell.x() + choice * cell.width() / count, cell.y(), cell.width() / count, cell.height());
    return QRect(cell.x(), cell.y() + choice * cell.height() / count, cell.width(), cell.height() / count);
}

template <typename Option>
Option controlOption(const QStyleOptionViewItem& cell) {
    Option option;
    option.rect = cell.rect;
    option.palette = cell.palette;
    option.direction = cell.direction;
    option.fontMetrics = cell.fontMetrics;
    option.state = cell.state & (QStyle::State_Enabled | QStyle::State_Active);
    return option;
}

void drawArrow(QPainter& painter, const QStyleOptionViewItem& cell) {
    auto option = controlOption<QStyleOption>(cell);
    // A style may keep a picture of the arrow for each palette. The cell's palette is a new one at each
    // painting, so that the style would keep a picture more each time; the view's is always the same.
    option.palette = cell.widget->palette();
    option.palette.setCurrentColorGroup(cell.palette.currentColorGroup());
    option.rect =
        QStyle::alignedRect(cell.direction, Qt::AlignRight | Qt::AlignVCenter, QSize(kArrowSize, kArrowSize),
                            cell.rect.adjusted(kArrowMargin, 0, -kArrowMargin, 0));
    cell.widget->style()->drawPrimitive(QStyle::PE_IndicatorArrowDown, &option, &painter, cell.widget);
}

void drawColor(QPainter& painter, const QStyleOptionViewItem& cell, const QColor& color) {
    const QRect inside = cell.rect.adjusted(kColorMargin, kColorMargin, -kColorMargin - 1, -kColorMargin - 1);
    painter.save();
    painter.setPen(cell.palette.color(QPalette::Text));
    painter.setBrush(color);
    painter.drawRect(inside);
    painter.restore();
}

void drawChoices(QPainter& painter, const QStyleOptionViewItem& cell, const GridModel::Cell& group) {
    const bool selected = cell.state & QStyle::State_Selected;
    for (int choice = 0; choice < group.style.choices.size(); ++choice) {
        auto option = controlOption<QStyleOptionButton>(cell);
        option.rect = choiceRect(cell.rect, group.style, choice).adjusted(kColorMargin, 0, 0, 0);
        option.text = group.style.choices[choice];
        option.state |= group.text == QString::number(choice) ? QStyle::State_On : QStyle::State_Off;
        option.palette.setBrush(QPalette::WindowText,
                                cell.palette.brush(selected ? QPalette::HighlightedText : QPalette::Text));
        cell.widget->style()->drawControl(QStyle::CE_RadioButton, &option, &painter, cell.widget);
    }
}

} // namespace

GridDelegate::GridDelegate(IGridEditing& grid, GridModel& model, QObject* parent)
    : QStyledItemDelegate(parent), grid_(grid), model_(model) {
}

void GridDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    const GridModel::Cell& cell = model_.cell(index);
    // The look follows from `greyed` alone: a cell that cannot be current (`enabled`) looks as any other.
    const bool greyed = cell.style.greyed || (option->widget && !option->widget->isEnabled());
    option->state.setFlag(QStyle::State_Enabled, !greyed);
    const bool active = option->state & QStyle::State_Active;
    option->palette.setCurrentColorGroup(greyed   ? QPalette::Disabled
                                         : active ? QPalette::Active
                                                  : QPalette::Inactive);
    option->palette.setColor(QPalette::Window, outlineColor(option->palette));
    if (cell.style.kind == GridCellKind::dropDown) {
        const int width = option->rect.width() - kArrowSize - 3 * kArrowMargin;
        option->text = option->fontMetrics.elidedText(option->text, option->textElideMode, width);
    }
}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    const GridModel::Cell& cell = model_.cell(index);
    QStyleOptionViewItem shown = option;
    initStyleOption(&shown, index);
    switch (cell.style.kind) {
    case GridCellKind::dropDown:
        if (!cell.style.readOnly)
            drawArrow(*painter, shown);
        break;
    case GridCellKind::radioGroup:
        drawChoices(*painter, shown, cell);
        break;
    case GridCellKind::color:
        if (const std::optional<QColor> color = colorOf(cell.text))
            drawColor(*painter, shown, *color);
        break;
    case GridCellKind::text:
    case GridCellKind::maskedEdit:
    case GridCellKind::checkBox:
        break;
    }
}

QWidget* GridDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                    const QModelIndex& index) const {
    if (!grid_.mayStartEditing(index))
        return nullptr;
    const GridModel::Cell& cell = model_.cell(index);
    editor_ =
        cell.style.kind == GridCellKind::dropDown ? makeList(grid_, parent, cell) : makeEdit(parent, cell);
    editor_->setAccessibleName(model_.cellName(index));
    editor_->setAutoFillBackground(true);
    edited_ = index;
    return editor_;
}

void GridDelegate::destroyEditor(QWidget* editor, const QModelIndex& index) const {
    editor_ = nullptr;
    edited_ = QModelIndex();
    QStyledItemDelegate::destroyEditor(editor, index);
}

QString GridDelegate::editorText() const {
    if (const auto* edit = qobject_cast<QLineEdit*>(editor_.data()))
        return inOneLine(edit->text());
    const auto* list = qobject_cast<QComboBox*>(editor_.data());
    if (!list || (list->currentIndex() < 0 && !list->isEditable()))
        return model_.cell(edited_).text;
    return inOneLine(list->currentText());
}

bool GridDelegate::isEditorTouched() const {
    const auto* edit = qobject_cast<QLineEdit*>(editor_.data());
    return (edit && edit->isModified()) || editorText() != model_.cell(edited_).text;
}

void GridDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    const QString text = model_.cell(index).text;
    if (auto* edit = qobject_cast<QLineEdit*>(editor))
        edit->setText(text);
    else if (auto* list = qobject_cast<QComboBox*>(editor)) {
        list->setCurrentIndex(list->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
        if (list->isEditable()) {
            list->setEditText(text);
            list->lineEdit()->selectAll();
        }
    }
}

void GridDelegate::setModelData(QWidget*, QAbstractItemModel* model, const QModelIndex& index) const {
    const QString text = editorText();
    if (text != model_.cell(index).text)
        model->setData(index, text, Qt::EditRole);
    else if (isEditorTouched())
        model_.markEdited(index);
}

void GridDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                        const QModelIndex&) const {
    editor->setGeometry(option.rect);
}

bool GridDelegate::editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                               const QModelIndex& index) {
    const GridCellStyle style = model_.cell(index).style;
    if (style.kind != GridCellKind::radioGroup || style.readOnly || !style.enabled ||
        event->type() != QEvent::MouseButtonRelease)
        return QStyledItemDelegate::editorEvent(event, model, option, index);
    const auto& release = *static_cast<QMouseEvent*>(event);
    if (release.button() != Qt::LeftButton)
        return false;
    const QPoint at = release.position().toPoint();
    for (int choice = 0; choice < style.choices.size(); ++choice) {
        if (choiceRect(option.rect, style, choice).contains(at))
            return model->setData(index, QString::number(choice), Qt::EditRole);
    }
    return false;
}

bool GridDelegate::eventFilter(QObject* watched, QEvent* event) {
    if (watched != editor_)
        return QStyledItemDelegate::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress)
        return handleEditorKey(*static_cast<QKeyEvent*>(event));
    if (event->type() == QEvent::FocusOut) {
        // An edit goes on while a menu, the editor's own list or another window is in front.
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::PopupFocusReason && reason != Qt::MenuBarFocusReason &&
            reason != Qt::ActiveWindowFocusReason && !isWithin(QApplication::focusWidget(), editor_))
            grid_.leaveEdit();
        return false;
    }
    return QStyledItemDelegate::eventFilter(watched, event);
}

bool GridDelegate::handleEditorKey(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        grid_.endEdit();
        return true;
    case Qt::Key_Escape:
        Q_EMIT closeEditor(editor_, RevertModelCache);
        return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        grid_.tabOutOfEdit(event);
        return true;
    default:
        return false;
    }
}

} // namespace ovsettings
