#include "suite/chooser/symbolchooser.h"

#include "orv/symbolreader.h"
#include "platform/plaintext.h"
#include "suite/chooser/symbollistmodel.h"
#include "suite/chooser/symbolpreview.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtGui/QKeyEvent>
#include <QtGui/QScreen>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QStyle>
#include <QtWidgets/QTableView>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <numeric>
#include <utility>

namespace cldialog {

namespace {

/// The categories in front of the partitions.
enum Category { kSuggested, kAllSymbols, kFirstPartition };

/// For so long the listing of partitions keeps the user waiting before it shows what it has.
constexpr qint64 kPatienceMs = 30;

constexpr Qt::KeyboardModifiers kModifiers = ~Qt::KeyboardModifiers(Qt::KeypadModifier);

bool movesInList(const QKeyEvent& event) {
    constexpr int kKeys[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown};
    return !(event.modifiers() & kModifiers) && std::ranges::find(kKeys, event.key()) != std::end(kKeys);
}

/// In the list a blank selects, so it is no letter there.
bool editsFilter(const QKeyEvent& event) {
    if (event.modifiers() & kModifiers & ~Qt::KeyboardModifiers(Qt::ShiftModifier))
        return false;
    const QString text = event.text();
    return event.key() == Qt::Key_Backspace ||
           (!text.isEmpty() && text.front().isPrint() && !text.front().isSpace());
}

QSize& lastSize() {
    static QSize size;
    return size;
}

QLabel* makeCaption(const QString& text, QWidget* buddy, QWidget* parent) {
    auto* caption = new QLabel(text, parent);
    caption->setBuddy(buddy);
    return caption;
}

} // namespace

SymbolChooser::SymbolChooser(Content content, QWidget* owner)
    : QDialog(owner),
      library_(std::move(content.library)),
      libraryProblem_(std::move(content.problem)),
      suggested_(table_.append(std::move(content.suggested))),
      listings_(library_.partitions(suite::PartitionType::symbols).size()),
      model_(new SymbolListModel(table_, this)) {
    setWindowTitle(content.title);
    setSizeGripEnabled(true);
    listTimer_.setSingleShot(true);
    previewTimer_.setSingleShot(true);
    createControls();
    fillCategories(content.title);

    connect(filter_, &QLineEdit::textChanged, this, &SymbolChooser::filter);
    connect(category_, &QComboBox::currentIndexChanged, this, &SymbolChooser::showCategory);
    connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &SymbolChooser::updateSelection);
    connect(list_, &QTableView::doubleClicked, this, &QDialog::accept);
    connect(&listTimer_, &QTimer::timeout, this, &SymbolChooser::listPartitions);
    // Held arrow keys pass by many symbols; only one that is rested on is read.
    connect(&previewTimer_, &QTimer::timeout, this, [this] {
        if (const std::string symbol = selectedSymbol(); !symbol.empty())
            preview_->show(library_, symbol);
        else
            preview_->clear();
    });
    showCategory();

    const QSize comfortable(fontMetrics().averageCharWidth() * 100, fontMetrics().lineSpacing() * 27);
    const QSize wanted = lastSize().isValid() ? lastSize() : comfortable;
    resize(wanted.boundedTo(screen()->availableSize() * 0.9));
}

// In the order in which Tab goes through them.
void SymbolChooser::createControls() {
    QLayout* filters = createFilters();
    createProblemLine();
    auto* splitter = new QSplitter(this);
    splitter->addWidget(createList());
    splitter->addWidget(preview_ = new SymbolPreview(this));
    splitter->setChildrenCollapsible(false);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    ok_ = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(filters);
    layout->addWidget(problemLine_);
    layout->addWidget(splitter, 1);
    layout->addWidget(buttons);
    filter_->setFocus();
}

QLayout* SymbolChooser::createFilters() {
    filter_ = new QLineEdit(this);
    filter_->setClearButtonEnabled(true);
    filter_->setMinimumWidth(fontMetrics().averageCharWidth() * 18);
    filter_->setPlaceholderText(tr("Words that the name holds"));
    filter_->installEventFilter(this);
    category_ = new QComboBox(this);
    category_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    category_->setMinimumContentsLength(24);
    category_->setFocusPolicy(Qt::StrongFocus);
    category_->installEventFilter(this);

    auto* layout = new QHBoxLayout;
    layout->addWidget(makeCaption(tr("&Filter:"), filter_, this));
    layout->addWidget(filter_, 1);
    layout->addSpacing(style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing));
    layout->addWidget(makeCaption(tr("C&ategory:"), category_, this));
    layout->addWidget(category_, 1);
    return layout;
}

void SymbolChooser::createProblemLine() {
    problemLine_ = new QWidget(this);
    auto* sign = new QLabel(problemLine_);
    const int extent = style()->pixelMetric(QStyle::PM_SmallIconSize);
    sign->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(extent));
    problem_ = new QLabel(problemLine_);
    problem_->setTextFormat(Qt::PlainText);
    problem_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    problem_->setWordWrap(true);
    problem_->setAccessibleName(tr("Problem"));

    auto* layout = new QHBoxLayout(problemLine_);
    layout->setContentsMargins({});
    layout->addWidget(sign, 0, Qt::AlignTop);
    layout->addWidget(problem_, 1);
}

QWidget* SymbolChooser::createList() {
    // A table asks nothing of the rows that are out of sight; a list view lays out each of them at every key.
    list_ = new QTableView(this);
    list_->setModel(model_);
    list_->setSelectionMode(QAbstractItemView::SingleSelection);
    list_->setTabKeyNavigation(false);
    list_->setShowGrid(false);
    list_->setWordWrap(false);
    list_->setTextElideMode(Qt::ElideMiddle);
    list_->horizontalHeader()->hide();
    list_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    list_->verticalHeader()->hide();
    list_->verticalHeader()->setMinimumSectionSize(0);
    list_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 2);
    list_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->installEventFilter(this);
    auto* part = new QWidget(this);
    count_ = new QLabel(part);
    count_->setTextFormat(Qt::PlainText);
    count_->setWordWrap(true);

    auto* layout = new QVBoxLayout(part);
    layout->setContentsMargins({});
    layout->addWidget(makeCaption(tr("&Symbols:"), list_, part));
    layout->addWidget(list_);
    layout->addWidget(count_);
    return part;
}

void SymbolChooser::fillCategories(const QString& title) {
    category_->addItem(title.isEmpty() ? tr("Suggested") : tr("Suggested for %1").arg(title));
    category_->addItem(tr("All symbols"));
    for (const suite::Partition& partition : library_.partitions(suite::PartitionType::symbols))
        category_->addItem(QString::fromStdString(partition.name));
}

void SymbolChooser::showCategory() {
    select(std::nullopt);
    // A directory that could not be read may be there again.
    for (const std::size_t partition : shownPartitions()) {
        if (!listings_[partition].isReadable)
            listings_[partition] = {};
    }
    listPartitions();
}

void SymbolChooser::listPartitions() {
    listTimer_.stop();
    QElapsedTimer time;
    time.start();
    for (const std::size_t partition : shownPartitions()) {
        if (listings_[partition].symbols)
            continue;
        if (time.hasExpired(kPatienceMs)) {
            listTimer_.start(0);
            break;
        }
        list(partition);
    }
    showSymbols();
}

void SymbolChooser::list(std::size_t number) {
    const suite::Partition& partition = library_.partitions(suite::PartitionType::symbols)[number];
    std::vector<std::string> names = suite::symbolNames(library_, partition);
    for (std::string& name : names)
        name.insert(0, partition.name + Orv::kSymbolSeparator);
    Listing& listing = listings_[number];
    if (names.empty()) {
        const QFileInfo directory(QString::fromStdString(library_.fullPath(partition)));
        listing.isReadable = directory.isDir() && directory.isReadable();
    }
    listing.symbols = table_.append(std::move(names));
}

void SymbolChooser::showSymbols() {
    std::optional<SymbolId> selected;
    if (const auto row = selectedRow())
        selected = model_->symbolAt(*row);
    std::vector<SymbolRange> ranges;
    if (showsSuggested())
        ranges.push_back(suggested_);
    for (const std::size_t partition : shownPartitions()) {
        if (listings_[partition].symbols)
            ranges.push_back(*listings_[partition].symbols);
    }
    model_->show(std::move(ranges), SymbolQuery(filter_->text()));
    select(selected ? model_->rowOf(*selected) : model_->nearestRow());
    updateMessages();
}

void SymbolChooser::filter() {
    select(std::nullopt);
    showSymbols();
}

void SymbolChooser::select(std::optional<int> row) {
    list_->setCurrentIndex(row ? model_->index(*row) : QModelIndex());
    updateSelection();
}

void SymbolChooser::updateSelection() {
    ok_->setEnabled(selectedRow().has_value());
    previewTimer_.start(0);
}

void SymbolChooser::updateMessages() {
    const QString problem = problemText();
    problem_->setText(platform::inItsOrder(problem));
    problemLine_->setVisible(!problem.isEmpty());
    count_->setText(countText());
}

std::optional<int> SymbolChooser::selectedRow() const {
    const QModelIndex current = list_->currentIndex();
    if (!current.isValid() || !list_->selectionModel()->isSelected(current))
        return std::nullopt;
    return current.row();
}

std::string SymbolChooser::selectedSymbol() const {
    const auto row = selectedRow();
    return row ? table_.name(model_->symbolAt(*row)) : std::string();
}

bool SymbolChooser::showsSuggested() const {
    return category_->currentIndex() == kSuggested;
}

std::vector<std::size_t> SymbolChooser::shownPartitions() const {
    const int category = category_->currentIndex();
    if (category >= kFirstPartition)
        return {static_cast<std::size_t>(category - kFirstPartition)};
    std::vector<std::size_t> all(category == kAllSymbols ? listings_.size() : 0);
    std::iota(all.begin(), all.end(), std::size_t{0});
    return all;
}

QString SymbolChooser::problemText() const {
    if (!libraryProblem_.isEmpty())
        return libraryProblem_;
    QStringList unreadable;
    for (const std::size_t partition : shownPartitions()) {
        if (!listings_[partition].isReadable)
            unreadable.push_back(
                QString::fromStdString(library_.partitions(suite::PartitionType::symbols)[partition].name));
    }
    constexpr qsizetype kMostNames = 5;
    if (unreadable.size() > kMostNames)
        unreadable = unreadable.first(kMostNames) << QString(QChar(0x2026));
    return unreadable.isEmpty()
               ? QString()
               : tr("Directories that cannot be read in %1: %2")
                     .arg(QString::fromStdString(library_.directory()), unreadable.join(QLatin1String(", ")));
}

QString SymbolChooser::countText() const {
    std::size_t all = showsSuggested() ? suggested_.end - suggested_.begin : 0;
    for (const std::size_t partition : shownPartitions()) {
        if (const auto& symbols = listings_[partition].symbols)
            all += symbols->end - symbols->begin;
    }
    const QLocale locale;
    if (listTimer_.isActive())
        return tr("Looking for symbols: %1 so far").arg(locale.toString(static_cast<qulonglong>(all)));
    if (all == 0)
        return showsSuggested() && !listings_.empty()
                   ? tr("There is no suggestion; another category may hold symbols.")
                   : tr("There are no symbols here.");
    if (model_->rowCount() == 0)
        return tr("No symbol has these words in its name.");
    return tr("%1 of %2")
        .arg(locale.toString(model_->rowCount()), locale.toString(static_cast<qulonglong>(all)));
}

void SymbolChooser::done(int result) {
    lastSize() = size();
    QDialog::done(result);
}

bool SymbolChooser::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel && watched == category_ && !category_->hasFocus()) {
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (watched == filter_ && movesInList(key)) {
            QApplication::sendEvent(list_, event);
            return true;
        }
        if (watched == list_ && !(key.modifiers() & kModifiers) &&
            (key.key() == Qt::Key_Home || key.key() == Qt::Key_End)) {
            // To a table, these alone are ways within a row.
            QKeyEvent toEnd(QEvent::KeyPress, key.key(), Qt::ControlModifier);
            QApplication::sendEvent(list_, &toEnd);
            return true;
        }
        if (watched == list_ && editsFilter(key)) {
            filter_->setFocus();
            QApplication::sendEvent(filter_, event);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace cldialog
