#include "dialog/widgets/listboxeditor.h"

#include "dialog/widgets/stringconversion.h"
#include "platform/plaintext.h"

#include <QtCore/QMetaProperty>
#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QStyledItemDelegate>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <array>

namespace ovsettings {

namespace {

// Far from the first roles, which are a derived list's own.
constexpr int kOriginRole = Qt::UserRole + 1000;

} // namespace

/// Edits a line in place. What was entered reaches the list only when the control for it is closed: what
/// follows may ask the user, or take the line out.
class LineDelegate : public QStyledItemDelegate {
public:
    explicit LineDelegate(ListBoxEditor& owner) : QStyledItemDelegate(&owner), owner_(owner) {
        owner.list().setItemDelegate(this);
        connect(this, &QAbstractItemDelegate::closeEditor, &owner, [this] { closed(); });
    }

    bool isEditing() const { return control_; }
    bool isChanging() const {
        return control_ && index_.isValid() && textOf(*control_) != owner_.line(index_.row());
    }

    void finish() {
        if (!control_)
            return;
        Q_EMIT commitData(control_);
        Q_EMIT closeEditor(control_);
    }

    void cancel() {
        if (control_)
            Q_EMIT closeEditor(control_, RevertModelCache);
    }

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                          const QModelIndex& index) const override {
        index_ = index;
        entered_.reset();
        control_ = owner_.createLineEditor(parent, index.row());
        return control_;
    }

    void setModelData(QWidget* control, QAbstractItemModel*, const QModelIndex&) const override {
        entered_ = textOf(*control);
    }

    void updateEditorGeometry(QWidget* control, const QStyleOptionViewItem& option,
                              const QModelIndex&) const override {
        control->setGeometry(option.rect);
    }

    /// As wide as the list, so that a long line is elided, and high enough to be edited.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        constexpr int kMargin = 3;
        const int height = QStyledItemDelegate::sizeHint(option, index).height();
        return {0, std::max(height, option.fontMetrics.height() + 2 * kMargin)};
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        // Behind another window the edit stays open: what follows its end may ask the user.
        if (event->type() == QEvent::FocusOut &&
            static_cast<QFocusEvent*>(event)->reason() == Qt::ActiveWindowFocusReason)
            return false;
        if (event->type() != QEvent::KeyPress || watched != control_)
            return QStyledItemDelegate::eventFilter(watched, event);
        // These keys end the edit. They lead neither to the next line nor to the dialog's default button.
        constexpr std::array kEnds{Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab, Qt::Key_Backtab};
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (std::find(kEnds.begin(), kEnds.end(), key) == kEnds.end())
            return QStyledItemDelegate::eventFilter(watched, event);
        finish();
        return true;
    }

private:
    static QString textOf(const QWidget& control) {
        return inOneLine(control.property(control.metaObject()->userProperty().name()).toString());
    }

    void closed() {
        control_ = nullptr;
        const auto entered = std::exchange(entered_, std::nullopt);
        if (index_.isValid())
            owner_.endEditing(index_.row(), entered);
    }

    ListBoxEditor& owner_;
    mutable QPointer<QWidget> control_;
    mutable QPersistentModelIndex index_;
    mutable std::optional<QString> entered_;
};

ListBoxEditor::ListBoxEditor(QWidget* parent)
    : QWidget(parent), titleRow_(new QHBoxLayout), title_(new QLabel(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(titleRow_);
    titleRow_->setSpacing(0);
    titleRow_->addWidget(title_, 1);
    const auto button = [this](const char* icon, const QString& text, const QKeySequence& key) {
        QToolButton* made = makeButton(QLatin1String(icon), text, key);
        titleRow_->addWidget(made);
        return made;
    };
    new_ = button("new", tr("New"), Qt::Key_Insert);
    delete_ = button("delete", tr("Delete"), Qt::Key_Delete);
    up_ = button("up", tr("Move up"), Qt::ALT | Qt::Key_Up);
    down_ = button("down", tr("Move down"), Qt::ALT | Qt::Key_Down);

    list_ = new QListWidget(this);
    layout->addWidget(list_);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->setUniformItemSizes(true);
    list_->setTextElideMode(Qt::ElideMiddle);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    title_->setBuddy(list_);
    delegate_ = new LineDelegate(*this);
    connectControls();
    updateButtons();
}

/// A control for editing in place that lost the focus in its destructor would be read there.
ListBoxEditor::~ListBoxEditor() {
    cancelEditing();
}

QToolButton* ListBoxEditor::makeButton(const QString& icon, const QString& text, const QKeySequence& key) {
    auto* button = new QToolButton(this);
    button->setAutoRaise(true);
    button->setIcon(QIcon(QLatin1String(":/ovsettings/images/") + icon + QLatin1String(".svg")));
    button->setText(text);
    button->setToolTip(key.isEmpty() ? text
                                     : tr("%1 (%2)").arg(text, key.toString(QKeySequence::NativeText)));
    return button;
}

QToolButton& ListBoxEditor::addButton(const QString& icon, const QString& text, const QKeySequence& key) {
    QToolButton* button = makeButton(icon, text, key);
    titleRow_->insertWidget(titleRow_->indexOf(new_) + 1, button);
    setTabOrder(new_, button);
    return *button;
}

void ListBoxEditor::connectControls() {
    connect(new_, &QToolButton::clicked, this, [this] { newLine(); });
    connect(delete_, &QToolButton::clicked, this, &ListBoxEditor::deleteLine);
    connect(up_, &QToolButton::clicked, this, [this] { moveLine(-1); });
    connect(down_, &QToolButton::clicked, this, [this] { moveLine(+1); });
    connect(list_, &QListWidget::currentRowChanged, this, &ListBoxEditor::updateButtons);
    connect(list_, &QListWidget::itemSelectionChanged, this, &ListBoxEditor::updateButtons);
    connect(list_, &QListWidget::doubleClicked, this,
            [this](const QModelIndex& index) { editLine(index.row()); });
    list_->installEventFilter(this);
}

void ListBoxEditor::setTitle(const QString& title) {
    title_->setText(title);
    QString name = title;
    name.remove(QLatin1Char('&')).remove(QLatin1Char(':'));
    list_->setAccessibleName(name);
    for (QToolButton* button : findChildren<QToolButton*>(QString(), Qt::FindDirectChildrenOnly))
        button->setAccessibleName(name + QLatin1String(": ") + button->text());
}

void ListBoxEditor::setEditable(bool editable) {
    cancelEditing();
    for (QToolButton* button : findChildren<QToolButton*>(QString(), Qt::FindDirectChildrenOnly))
        button->setVisible(editable);
    setEnabled(editable);
}

void ListBoxEditor::setLines(const QStringList& lines) {
    cancelEditing();
    list_->clear();
    for (const QString& text : lines)
        insertLine(lineCount(), text);
    if (placeForNew_)
        insertLine(lineCount(), QString());
    updateButtons();
}

QStringList ListBoxEditor::lines() const {
    QStringList lines;
    lines.reserve(lineCount());
    for (int row = 0; row < lineCount(); ++row)
        lines.append(line(row));
    return lines;
}

int ListBoxEditor::lineCount() const {
    return list_->count();
}

QString ListBoxEditor::line(int row) const {
    return list_->item(row)->text();
}

void ListBoxEditor::insertLine(int row, const QString& text) {
    auto* item = new QListWidgetItem;
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    list_->insertItem(row, item);
    setLine(list_->row(item), text);
}

void ListBoxEditor::setLine(int row, const QString& text) {
    QListWidgetItem* item = list_->item(row);
    item->setText(text);
    item->setData(kOriginRole, QVariant());
    item->setToolTip(platform::toToolTip(text));
    item->setData(Qt::AccessibleTextRole, text.isEmpty() ? tr("New line") : text);
}

void ListBoxEditor::setOrigin(int row, const QVariant& origin) {
    list_->item(row)->setData(kOriginRole, origin);
}

QVariant ListBoxEditor::origin(int row) const {
    return list_->item(row)->data(kOriginRole);
}

void ListBoxEditor::removeLine(int row) {
    delete list_->takeItem(row);
    updateButtons();
}

int ListBoxEditor::currentRow() const {
    return list_->currentRow();
}

void ListBoxEditor::setCurrentRow(int row) {
    list_->setCurrentRow(row);
}

void ListBoxEditor::finishEditing() {
    delegate_->finish();
}

bool ListBoxEditor::isChanging() const {
    return delegate_->isChanging();
}

void ListBoxEditor::cancelEditing() {
    delegate_->cancel();
}

void ListBoxEditor::newLine() {
    finishEditing();
    if (isPlaceForNew(lineCount() - 1))
        editInPlace(lineCount() - 1);
    else
        beginLine(lineCount());
}

void ListBoxEditor::beginLine(int row) {
    finishEditing();
    insertLine(row, QString());
    begun_ = list_->model()->index(row, 0);
    editInPlace(row);
}

void ListBoxEditor::editLine(int row) {
    editInPlace(row);
}

void ListBoxEditor::editInPlace(int row) {
    finishEditing();
    list_->setCurrentRow(row);
    list_->setFocus();
    list_->edit(list_->currentIndex());
}

QWidget* ListBoxEditor::createLineEditor(QWidget* parent, int) {
    auto* control = new QLineEdit(parent);
    control->setFrame(false);
    control->setAccessibleName(list_->accessibleName());
    return control;
}

void ListBoxEditor::endEditing(int row, const std::optional<QString>& text) {
    const bool begun = begun_.isValid() && begun_.row() == row;
    begun_ = QPersistentModelIndex();
    if (begun && text.value_or(QString()).isEmpty())
        removeLine(row);
    else if (text)
        changeLine(row, *text, begun || isPlaceForNew(row));
}

void ListBoxEditor::enterText(int row, const QString& text) {
    changeLine(row, text, isPlaceForNew(row));
}

void ListBoxEditor::changeLine(int row, const QString& text, bool isNew) {
    if (text == line(row))
        return;
    if (text.isEmpty()) {
        removeLine(row);
        lineDeleted(row);
        return;
    }
    const bool place = isPlaceForNew(row);
    setLine(row, text);
    if (place)
        insertLine(lineCount(), QString());
    if (isNew)
        lineAdded(row, text);
    else
        lineRenamed(row, text);
    updateButtons();
}

void ListBoxEditor::deleteLine() {
    // A line that was only begun goes with its edit. The one that takes its place must stay.
    const QPersistentModelIndex meant(list_->currentIndex());
    cancelEditing();
    const int row = meant.row();
    if (!isEntry(row) || !list_->item(row)->isSelected())
        return;
    removeLine(row);
    lineDeleted(row);
}

void ListBoxEditor::moveLine(int distance) {
    // A refused edit takes its line away.
    const QPersistentModelIndex meant(list_->currentIndex());
    finishEditing();
    const int from = meant.row();
    const int to = from + distance;
    if (!isEntry(from) || !isEntry(to) || !mayMove(from, to))
        return;
    list_->insertItem(to, list_->takeItem(from));
    list_->setCurrentRow(to);
    lineMoved(from, to);
}

void ListBoxEditor::lineAdded(int, const QString&) {
}

void ListBoxEditor::lineRenamed(int, const QString&) {
}

void ListBoxEditor::lineDeleted(int) {
}

void ListBoxEditor::lineMoved(int, int) {
}

bool ListBoxEditor::mayMove(int, int) {
    return true;
}

bool ListBoxEditor::isPlaceForNew(int row) const {
    return placeForNew_ && row >= 0 && row == lineCount() - 1 && line(row).isEmpty();
}

bool ListBoxEditor::isEntry(int row) const {
    return row >= 0 && row < lineCount() && !isPlaceForNew(row);
}

void ListBoxEditor::updateButtons() {
    const int row = currentRow();
    delete_->setEnabled(isEntry(row) && list_->item(row)->isSelected());
    up_->setEnabled(isEntry(row) && isEntry(row - 1));
    down_->setEnabled(isEntry(row) && isEntry(row + 1));
}

bool ListBoxEditor::eventFilter(QObject* watched, QEvent* event) {
    // The list would make its first line the current one and leave it unselected.
    if (event->type() == QEvent::FocusIn && currentRow() < 0 &&
        static_cast<QFocusEvent*>(event)->reason() != Qt::MouseFocusReason)
        setCurrentRow(0);
    if (event->type() == QEvent::KeyPress && !delegate_->isEditing() &&
        handleKey(*static_cast<QKeyEvent*>(event)))
        return true;
    return QWidget::eventFilter(watched, event);
}

bool ListBoxEditor::handleKey(const QKeyEvent& event) {
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const int key = event.key();
    if (modifiers == Qt::AltModifier && (key == Qt::Key_Up || key == Qt::Key_Down)) {
        moveLine(key == Qt::Key_Up ? -1 : +1);
        return true;
    }
    if (modifiers != Qt::NoModifier)
        return false;
    switch (key) {
    case Qt::Key_Insert:
        newLine();
        return true;
    case Qt::Key_Delete:
        deleteLine();
        return true;
    case Qt::Key_F2:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (currentRow() >= 0)
            editLine(currentRow());
        return true;
    default:
        return false;
    }
}

} // namespace ovsettings
