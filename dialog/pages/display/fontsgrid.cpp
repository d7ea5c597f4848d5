#include "dialog/pages/display/fontsgrid.h"

#include "dialog/pages/display/ownbitmapbtn.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QHeaderView>

#include <algorithm>

namespace ovsettings {

namespace {

constexpr int kCaptionMargin = 24;
constexpr int kStrokeFontColumn = CFontMapRow::kStrokeFontColumn;
constexpr int kScaleableFontColumn = CFontMapRow::kScaleableFontColumn;

struct StrokeFont {
    const char* key;
    const char* caption;
};

constexpr StrokeFont kStrokeFonts[] = {
    {"FIXED", QT_TRANSLATE_NOOP("ovsettings", "Fixed")},
    {"ROMAN", QT_TRANSLATE_NOOP("ovsettings", "Roman")},
    {"ROMANITALIC", QT_TRANSLATE_NOOP("ovsettings", "Roman Italic")},
    {"ROMANBOLD", QT_TRANSLATE_NOOP("ovsettings", "Roman Bold")},
    {"ROMANBOLDITALIC", QT_TRANSLATE_NOOP("ovsettings", "Roman Bold Italic")},
    {"SANSSERIF", QT_TRANSLATE_NOOP("ovsettings", "Sans Serif")},
    {"SCRIPT", QT_TRANSLATE_NOOP("ovsettings", "Script")},
    {"SANSSERIFBOLD", QT_TRANSLATE_NOOP("ovsettings", "Sans Serif Bold")},
    {"SCRIPTBOLD", QT_TRANSLATE_NOOP("ovsettings", "Script Bold")},
    {"GOTHIC", QT_TRANSLATE_NOOP("ovsettings", "Gothic")},
    {"OLDENGLISH", QT_TRANSLATE_NOOP("ovsettings", "Old English")},
    {"KANJI", QT_TRANSLATE_NOOP("ovsettings", "Kanji")},
    {"PLOT", QT_TRANSLATE_NOOP("ovsettings", "Plot")},
};

} // namespace

std::vector<GridSetting> fontSettings() {
    std::vector<GridSetting> settings;
    for (const StrokeFont& font : kStrokeFonts)
        settings.push_back({font.key, font.caption});
    return settings;
}

CFontsGrid::CFontsGrid(QWidget* parent)
    : GridWnd(parent),
      editButton_(new CBitmapBtnEdit(viewport())),
      removeButton_(new CBitmapBtnDel(viewport())) {
    connect(editButton_, &QToolButton::clicked, this, &CFontsGrid::editRequested);
    connect(removeButton_, &QToolButton::clicked, this, &CFontsGrid::removeRequested);
}

void CFontsGrid::init() {
    setColumnCount(kScaleableFontColumn);
    setCellText(0, kStrokeFontColumn, tr("Stroke font"));
    setCellText(0, kScaleableFontColumn, tr("Scaleable font"));
    showHeaders(true, false);
}

void CFontsGrid::addRows() {
    setRowCount(static_cast<int>(std::size(kStrokeFonts)));
    for (const StrokeFont& font : kStrokeFonts) {
        const int row = static_cast<int>(rows_.size()) + 1;
        rows_.push_back(std::make_unique<CFontMapRow>(*this, row, font.key, font.caption, *appConfig_));
    }
    layoutColumns();
}

void CFontsGrid::loadRows() {
    for (const auto& row : rows_)
        row->load();
}

void CFontsGrid::storeRows() {
    for (const auto& row : rows_)
        row->store();
}

void CFontsGrid::followRows(DroppedEdits& dropped) {
    for (const auto& row : rows_)
        row->follow(dropped);
    placeButtons();
}

bool CFontsGrid::isModified() const {
    return std::ranges::any_of(rows_, [](const auto& row) { return row->isModified(); });
}

CFontMapRow* CFontsGrid::currentMapRow() const {
    const auto row = static_cast<std::size_t>(currentRow());
    return row > 0 && row <= rows_.size() ? rows_[row - 1].get() : nullptr;
}

bool CFontsGrid::onClick(int, int) {
    Q_EMIT rowSelected();
    return false;
}

/// The keys change a locked row no more than the buttons do.
bool CFontsGrid::onKey(const QKeyEvent& event) {
    CFontMapRow* row = currentMapRow();
    if (!row || currentColumn() != kScaleableFontColumn)
        return false;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!row->isLocked())
            Q_EMIT editRequested();
        return true;
    case Qt::Key_Delete:
        // Only the cell: what is stored later is the mapping that there was, which only the button removes.
        if (!row->isLocked())
            row->clearCell();
        return true;
    default:
        return false;
    }
}

void CFontsGrid::layoutColumns() {
    int width = fontMetrics().horizontalAdvance(cellText(0, kStrokeFontColumn));
    for (int row = 1; row <= rowCount(); ++row)
        width = std::max(width, fontMetrics().horizontalAdvance(cellText(row, kStrokeFontColumn)));
    width = std::min(width + kCaptionMargin, clientWidth() / 2);
    setWidthOfColumn(kStrokeFontColumn, width);
    setWidthOfColumn(kScaleableFontColumn, clientWidth() - width);
}

void CFontsGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    GridWnd::currentChanged(current, previous);
    placeButtons();
    Q_EMIT rowSelected();
}

void CFontsGrid::updateGeometries() {
    GridWnd::updateGeometries();
    placeButtons();
}

void CFontsGrid::scrollContentsBy(int dx, int dy) {
    GridWnd::scrollContentsBy(dx, dy);
    placeButtons();
}

void CFontsGrid::placeButtons() {
    const CFontMapRow* row = currentMapRow();
    const bool shown = row && !row->isLocked();
    editButton_->setVisible(shown);
    removeButton_->setVisible(shown);
    if (!shown)
        return;
    const QRect cell = visualRect(model()->index(currentRow() - 1, kScaleableFontColumn - 1));
    editButton_->moveToCell(cell, 1);
    removeButton_->moveToCell(cell, 0);
}

} // namespace ovsettings
