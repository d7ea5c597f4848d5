#include "dialog/pages/libraries/librariesdialog.h"

#include "dialog/pages/libraries/browselibdlg.h"
#include "dialog/projectfile/projectfilefields.h"
#include "dialog/projectfile/projectpaths.h"
#include "dialog/projectfile/savequestion.h"
#include "dialog/shell/internalpages.h"
#include "dialog/shell/notifyupdaters.h"
#include "dialog/shell/stringtable.h"
#include "dialog/widgets/gdipainter.h"
#include "dialog/widgets/messagebox.h"
#include "dialog/widgets/progress.h"
#include "dialog/widgets/propfile.h"
#include "dialog/widgets/stringconversion.h"
#include "platform/asciicase.h"
#include "platform/plaintext.h"
#include "suite/symbollibs.h"
#include "ui_librariesdialog.h"

#include <QtGui/QPainter>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QStyledItemDelegate>

#include <algorithm>
#include <utility>

namespace ovsettings {

namespace {

constexpr char kImportPattern[] = "*.prj";

// The columns of a row, in pixels.
constexpr int kSplitPercent = 35;
constexpr int kColumnMargin = 5;
constexpr int kRowMargin = 3;

constexpr int kMiddleLightness = 128;
constexpr int kLineAlpha = 96;

QString typeName(int type) {
    return toQString(stringForUser(lookOfLibraryType(type).nameId));
}

/// The backgrounds of types are the same in every palette: where the palette's text would be lost on one, as
/// on the light ones in a dark palette, the text is black or white instead.
QColor legibleOn(const QColor& background, const QColor& wanted) {
    const bool light = background.lightness() >= kMiddleLightness;
    if (light != (wanted.lightness() >= kMiddleLightness))
        return wanted;
    return light ? Qt::black : Qt::white;
}

struct RowColors {
    QColor background;
    QColor text;
};

RowColors colorsOf(const LibraryTypeLook& look, const QPalette& palette, bool selected) {
    const int stated = selected ? look.selectedBackground : look.background;
    const QColor text = palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
    if (stated == LibraryTypeLook::kSystemColor)
        return {palette.color(selected ? QPalette::Highlight : QPalette::Base), text};
    const QColor background = toQColor(stated);
    return {background, legibleOn(background, text)};
}

} // namespace

/// A row with its library. Its text is empty: what shows is drawn from the library.
class CLibrariesDialog::CListBoxEditorEx::Item : public QListWidgetItem {
public:
    explicit Item(LibraryRow row) : library(std::move(row)) {}

    QVariant data(int role) const override {
        const QString alias = toQString(library.alias);
        const QString path = toQString(library.path);
        switch (role) {
        case Qt::AccessibleTextRole:
            return QString(alias + QLatin1String(", ") + path + QLatin1String(", ") + typeName(library.type));
        case Qt::ToolTipRole:
            return platform::toToolTip(alias + QLatin1Char('\n') + path + QLatin1Char('\n') +
                                       typeName(library.type));
        default:
            return QListWidgetItem::data(role);
        }
    }

    LibraryRow library;
};

/// Draws the alias and the path in two columns.
class CLibrariesDialog::CListBoxEditorEx::Delegate : public QStyledItemDelegate {
public:
    explicit Delegate(CListBoxEditorEx& owner) : QStyledItemDelegate(&owner), owner_(owner) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
        return {0, option.fontMetrics.height() + 2 * kRowMargin};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const LibraryRow& library = owner_.item(index.row()).library;
        const RowColors colors = colorsOf(lookOfLibraryType(library.type), option.palette,
                                          option.state.testFlag(QStyle::State_Selected));
        QColor lines = colors.text;
        lines.setAlpha(kLineAlpha);

        const int top = option.rect.top();
        const int right = option.rect.left() + option.rect.width();
        const int foot = top + option.rect.height() - 1;
        const int split = right * kSplitPercent / 100;
        painter->save();
        GdiPainter gdi(*painter);
        gdi.fillRectangle(option.rect.left(), top, right, foot + 1, colors.background);
        const auto drawText = [&](int from, int to, const std::string& text, Qt::TextElideMode elide) {
            const QRect cell(from, top, to - from, foot - top);
            painter->setPen(colors.text);
            painter->drawText(
                cell, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                option.fontMetrics.elidedText(platform::shortened(toQString(text)), elide, cell.width()));
        };
        drawText(kColumnMargin, split - kColumnMargin, library.alias, Qt::ElideRight);
        drawText(split + kColumnMargin, right - kColumnMargin, library.path, Qt::ElideMiddle);
        gdi.fillRectangle(option.rect.left(), foot, right, foot + 1, lines);
        gdi.fillRectangle(split, top, split + 1, foot, lines);
        if (option.state.testFlag(QStyle::State_HasFocus)) {
            painter->setPen(QPen(colors.text, 1, Qt::DotLine));
            painter->drawRect(option.rect.adjusted(0, 0, -1, -2));
        }
        painter->restore();
    }

private:
    const CListBoxEditorEx& owner_;
};

CLibrariesDialog::CListBoxEditorEx::CListBoxEditorEx(QWidget* parent) : WatchedListBoxEditor(parent) {
    list().setItemDelegate(new Delegate(*this));
    // Not inside the list's handling of the click, and once for several.
    editing_.setSingleShot(true);
    editing_.setInterval(0);
    connect(&editing_, &QTimer::timeout, this, [this] { editSelected(); });
}

CLibrariesDialog::CListBoxEditorEx::Item& CLibrariesDialog::CListBoxEditorEx::item(int row) const {
    return static_cast<Item&>(*list().item(row));
}

std::vector<LibraryRow> CLibrariesDialog::CListBoxEditorEx::rows() const {
    std::vector<LibraryRow> rows;
    rows.reserve(static_cast<std::size_t>(lineCount()));
    for (int row = 0; row < lineCount(); ++row)
        rows.push_back(item(row).library);
    return rows;
}

void CLibrariesDialog::CListBoxEditorEx::setRows(const std::vector<LibraryRow>& rows) {
    setLines({});
    for (const LibraryRow& row : rows)
        insertRow(lineCount(), row);
    clearChanged();
}

void CLibrariesDialog::CListBoxEditorEx::importRows(
    std::vector<LibraryRow> rows, const std::function<bool(std::size_t, std::size_t)>& progress) {
    if (rows.empty())
        return;
    TakenAliases taken = aliases();
    std::vector<std::unique_ptr<Item>> items;
    for (LibraryRow& row : rows) {
        if (!progress(items.size(), rows.size()))
            return;
        row.alias = taken.addUnique(row.alias);
        items.push_back(std::make_unique<Item>(std::move(row)));
    }
    const int first = lineCount();
    for (std::unique_ptr<Item>& item : items)
        list().addItem(item.release()); // the list owns it
    setCurrentRow(first);
    setChanged();
}

void CLibrariesDialog::CListBoxEditorEx::mendTypes() {
    for (int row = 0; row < lineCount(); ++row) {
        LibraryRow& library = item(row).library;
        library.type = storedType(library, row == 0);
    }
    list().viewport()->update();
}

TakenAliases CLibrariesDialog::CListBoxEditorEx::aliases() const {
    TakenAliases taken;
    for (int row = 0; row < lineCount(); ++row)
        taken.add(item(row).library.alias);
    return taken;
}

bool CLibrariesDialog::CListBoxEditorEx::tellIfTaken(const std::string& alias) {
    if (!aliases().contains(alias))
        return false;
    showMessage(this, CLibrariesDialog::tr("Library with specified name already added to the list"),
                applicationTitle(), QMessageBox::Critical);
    return true;
}

void CLibrariesDialog::CListBoxEditorEx::insertRow(int row, LibraryRow library) {
    list().insertItem(row, new Item(std::move(library))); // the list owns it
}

void CLibrariesDialog::CListBoxEditorEx::newLine() {
    LibraryRow library;
    if (!ask_ || !ask_(library) || tellIfTaken(library.alias))
        return;
    const int row = library.type == kPrimary ? 0 : lineCount();
    insertRow(row, std::move(library));
    setCurrentRow(row);
    setChanged();
}

void CLibrariesDialog::CListBoxEditorEx::editLine(int) {
    editing_.start();
}

void CLibrariesDialog::CListBoxEditorEx::editSelected() {
    const auto selected = list().selectedItems();
    if (selected.isEmpty() || !ask_)
        return;
    const QPersistentModelIndex meant(list().indexFromItem(selected.front()));
    LibraryRow library = item(meant.row()).library;
    const std::string before = library.alias;
    if (!ask_(library) || !meant.isValid())
        return;
    if (!platform::equalsWithoutCase(library.alias, before) && tellIfTaken(library.alias))
        return;
    if (library.type == kPrimary) {
        removeLine(meant.row());
        insertRow(0, std::move(library));
        setCurrentRow(0);
    } else {
        item(meant.row()).library = std::move(library);
        list().update(meant);
    }
    setChanged();
}

/// No library can be moved before a Primary in the first row, nor can that one be moved away.
bool CLibrariesDialog::CListBoxEditorEx::mayMove(int from, int to) {
    if (!item(from).isSelected())
        return false;
    return std::min(from, to) > 0 || item(0).library.type != kPrimary;
}

CLibrariesDialog::CLibrariesDialog(QWidget* parent) : CFormPage(parent, internalPage("Symbol Libraries")) {
}

CLibrariesDialog::~CLibrariesDialog() = default;

bool CLibrariesDialog::buildTemplate() {
    CFormPage::buildTemplate();
    ui_->libraries->setTitle(tr("Symbol &Libraries"));
    ui_->libraries->setAsk([this](LibraryRow& row) { return ask(row); });
    ui_->libraries->setEnabled(hasLibraries());
    ui_->importButton->setEnabled(hasLibraries());
    connect(ui_->importButton, &QPushButton::clicked, this, [this] { importList(); });
    return true;
}

bool CLibrariesDialog::OnInitDialog() {
    load();
    return true;
}

bool CLibrariesDialog::onOk() {
    return store(StartedBy::frame);
}

/// Tells the host by itself; at OK the frame does that.
bool CLibrariesDialog::onApply() {
    return store(StartedBy::page);
}

bool CLibrariesDialog::onLeave() {
    if (!isModified())
        return true;
    if (asksToSave(*this))
        store(StartedBy::page);
    load();
    return true;
}

bool CLibrariesDialog::isModified() const {
    return hasLibraries() && ui_->libraries->isChanged();
}

/// True once there is a list to show and a project to show it from.
bool CLibrariesDialog::hasLibraries() const {
    return ui_->libraries && projectConfig_ && projectConfig_->symbolLibs;
}

std::string CLibrariesDialog::directory() const {
    return hasProject(projectConfig_) ? projectDirectory(*projectConfig_) : std::string();
}

bool CLibrariesDialog::ask(LibraryRow& row) {
    CBrowseLibDlg dialog(this);
    dialog.setAlias(row.alias);
    dialog.setPath(row.path);
    dialog.setType(row.type);
    dialog.setProjectDirectory(directory());
    if (dialog.DoModal() != QDialog::Accepted)
        return false;
    row = {dialog.alias(), dialog.path(), dialog.type()};
    return true;
}

void CLibrariesDialog::importList() {
    FileChoice choice;
    choice.title = toUtf8(tr("Import Libraries"));
    choice.initialDirectory = directory();
    choice.filter = toUtf8(tr("Project files (*.prj)|*.prj|Ini files (*.ini)|*.ini|"
                              "Project and Ini files (*.prj;*.ini)|*.prj;*.ini|All files (*.*)|*.*||"));
    choice.defaultName = kImportPattern;
    const auto path = chooseFile(this, choice);
    if (!path)
        return;
    if (!importFrom(*path))
        showMessage(this, tr("Cannot import libraries from \"%1\"").arg(toQString(*path)), applicationTitle(),
                    QMessageBox::Critical);
}

bool CLibrariesDialog::importFrom(const std::string& path) {
    ProgressBox box(*this, tr("Importing libraries"));
    // One box for both: the rows of a long list take their time, too.
    const auto reading = [&](std::size_t read, std::size_t count) {
        return box.show(read, 2 * count);
    };
    const auto making = [&](std::size_t made, std::size_t count) {
        return box.show(count + made, 2 * count);
    };
    auto rows = importLibraries(path, reading);
    if (rows)
        ui_->libraries->importRows(std::move(*rows), making);
    return rows.has_value();
}

void CLibrariesDialog::load() {
    if (!hasLibraries())
        return;
    std::vector<LibraryRow> rows;
    for (const NProjectTools::ISymbolLibrary* library : projectConfig_->symbolLibs->GetLibList())
        rows.push_back({library->GetAlias(), library->GetLocation(), library->GetType()});
    ui_->libraries->setRows(rows);
}

bool CLibrariesDialog::store(StartedBy starter) {
    if (!isModified())
        return true;
    storeLibraries(ui_->libraries->rows(), projectConfig_->projectFilePath, *projectConfig_->symbolLibs);
    ui_->libraries->mendTypes();
    projectConfig_->librariesChanged = true;
    ui_->libraries->clearChanged();
    if (starter == StartedBy::page)
        notifyUpdatersOf(*this);
    return true;
}

} // namespace ovsettings
