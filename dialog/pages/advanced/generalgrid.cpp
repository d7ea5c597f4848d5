#include "dialog/pages/advanced/generalgrid.h"

#include "dialog/pages/advanced/generalcheckbox.h"
#include "dialog/pages/advanced/generalchoices.h"
#include "dialog/pages/advanced/generalrowcheckbox.h"
#include "dialog/pages/advanced/generalrowunitvalueedit.h"
#include "dialog/widgets/stringconversion.h"
#include "store/appcfg.h"
#include "store/unitglue.h"

#include <QtCore/QCoreApplication>

#include <algorithm>

namespace ovsettings {

namespace {

constexpr int kCaptionMargin = 16;
constexpr int kLeastValueCharacters = 12;

enum class RowKind { flag, length, choice };

struct SheetRow {
    const char* caption;
    RowKind kind;
    const char* key;
};

constexpr SheetRow kSheet[] = {
    {QT_TRANSLATE_NOOP("ovsettings", "Area Select by Overlap"), RowKind::flag, "AREA_SELECTION_OVERLAP"},
    {QT_TRANSLATE_NOOP("ovsettings", "Auto Pan"), RowKind::flag, "AUTOPAN"},
    {QT_TRANSLATE_NOOP("ovsettings", "Begin Nets in space"), RowKind::flag, "BEGIN_NETS_IN_SPACE"},
    {QT_TRANSLATE_NOOP("ovsettings", "Box Size"), RowKind::length, "BOXSIZE_HR"},
    {QT_TRANSLATE_NOOP("ovsettings", "Bus Dot Width"), RowKind::length, "DOTSIZE_THREE_SEGMENTS_HR"},
    {QT_TRANSLATE_NOOP("ovsettings", "Create automatic backup"), RowKind::flag, "DB_AUTO_BACKUP"},
    {QT_TRANSLATE_NOOP("ovsettings", "Copy Constraints On Copy Sheet"), RowKind::flag,
     "COPY_CONSTRAINTS_ON_COPY_BLOCK"},
    {QT_TRANSLATE_NOOP("ovsettings", "Copy Constraints Overwrites All Values"), RowKind::flag,
     "COPY_CONSTRAINTS_OVERWRITES_VALUES"},
    {QT_TRANSLATE_NOOP("ovsettings", "Copy and Paste Sheet using Conflict Resolution"), RowKind::flag,
     "COPY_CONSTRAINTS_USING_CRM"},
    {QT_TRANSLATE_NOOP("ovsettings", "Crosshair Cursor"), RowKind::choice, "CROSSCURSOR"},
    {QT_TRANSLATE_NOOP("ovsettings", "Display Full Signal Name on Ripper"), RowKind::flag,
     "DISPLAY_FULL_SIGNAL_NAME_ON_RIPPER"},
    {QT_TRANSLATE_NOOP("ovsettings", "Display Object While Moving"), RowKind::flag, "DETAIL"},
    {QT_TRANSLATE_NOOP("ovsettings", "Dot Size"), RowKind::length, "DOTSIZE_HR"},
    {QT_TRANSLATE_NOOP("ovsettings", "Lorvik Style Keybindings"), RowKind::flag, "KEYBINDINGS"},
    {QT_TRANSLATE_NOOP("ovsettings", "Extra Errors"), RowKind::flag, "XTRAERRS"},
    {QT_TRANSLATE_NOOP("ovsettings", "Flag out-of-date symbols"), RowKind::flag, "CHECK_COMP_DATES"},
    {QT_TRANSLATE_NOOP("ovsettings", "Flag out-of-date Reuse Blocks"), RowKind::flag,
     "CHECK_REUSEBLOCK_DATES"},
    {QT_TRANSLATE_NOOP("ovsettings", "Flip/Mirror objects separately"), RowKind::flag,
     "SEPARATE_FLIP_MIRROR"},
    {QT_TRANSLATE_NOOP("ovsettings", "Inverted Pin Bubble Size"), RowKind::length, "BUBBLESIZE_HR"},
    {QT_TRANSLATE_NOOP("ovsettings", "Language"), RowKind::choice, "LANGUAGE"},
    {QT_TRANSLATE_NOOP("ovsettings", "Pintype Arrows"), RowKind::choice, "PINTYPE_ARROWS"},
    {QT_TRANSLATE_NOOP("ovsettings", "Selection Distance"), RowKind::length, "SDISTANCE_HR"},
    {QT_TRANSLATE_NOOP("ovsettings", "Show bit numbers"), RowKind::flag, "BITNUMBERS"},
    {QT_TRANSLATE_NOOP("ovsettings", "Unique names on copy"), RowKind::flag, "UNIQUE_LABEL"},
    {QT_TRANSLATE_NOOP("ovsettings", "Verbose Errors"), RowKind::flag, "DB_ERR_VERBOSE"},
};

std::unique_ptr<CGeneralRow> makeChoiceRow(CGeneralGrid& grid, const std::string& caption,
                                           const ChoiceTable& table) {
    auto row = std::make_unique<CGeneralRowCheckBox>(grid, grid.appConfiguration(), caption);
    for (const ChoiceWritten& written : table.written)
        row->setDisplayValue(toUtf8(choiceCaption(written.choice)));
    grid.readChoice(*row, table);
    return row;
}

std::unique_ptr<CGeneralRow> makeRow(CGeneralGrid& grid, const SheetRow& row, Orv::Metrics::Unit unit) {
    const std::string caption = toUtf8(QCoreApplication::translate("ovsettings", row.caption));
    switch (row.kind) {
    case RowKind::length:
        return std::make_unique<CGeneralRowUnitValueEdit>(grid, grid.appConfiguration(), caption, unit);
    case RowKind::choice:
        return makeChoiceRow(grid, caption, *choiceTableOf(row.key));
    case RowKind::flag:
        break;
    }
    return std::make_unique<CGeneralCheckBox>(grid, grid.appConfiguration(), caption);
}

} // namespace

std::vector<GridSetting> generalSettings() {
    std::vector<GridSetting> settings;
    for (const SheetRow& row : kSheet) {
        settings.push_back({row.key, row.caption});
        if (row.kind != RowKind::choice)
            continue;
        for (const char* key : choiceTableOf(row.key)->keys.subspan(1))
            settings.push_back({key, row.caption});
    }
    return settings;
}

CGeneralGrid::CGeneralGrid(QWidget* parent) : GridWnd(parent) {
    setColumnCount(2);
    showHeaders(false, false);
}

void CGeneralGrid::setAppConfiguration(Orv::iAppConfiguration* appConfig) {
    appConfig_ = appConfig;
    for (const auto& row : rows_)
        row->setAppConfiguration(*appConfig);
}

void CGeneralGrid::onInitialUpdate() {
    const Orv::Metrics::Unit unit = Orv::getConfiguredUnit(*appConfig_);
    for (const SheetRow& sheetRow : kSheet) {
        std::unique_ptr<CGeneralRow> row = makeRow(*this, sheetRow, unit);
        row->setKey(sheetRow.key);
        appendRow(std::move(row));
    }
    layoutColumns();
}

void CGeneralGrid::readChoice(CGeneralRowCheckBox& row, const ChoiceTable& table) const {
    row.select(toUtf8(shownChoice(table, *appConfig_)));
    std::string ignored;
    bool locked = false;
    Orv::getValue(*appConfig_, table.keys.front(), ignored, locked);
    row.setLocked(locked && table.showsLock);
}

void CGeneralGrid::appendRow(std::unique_ptr<CGeneralRow> row) {
    nextRow_ = row->init(nextRow_);
    addRow(std::move(row));
}

void CGeneralGrid::addRow(std::unique_ptr<CGeneralRow> row) {
    rows_.push_back(std::move(row));
}

void CGeneralGrid::layoutColumns() {
    const int captions = widthOfCaptions() + kCaptionMargin;
    const int leastForValues = kLeastValueCharacters * fontMetrics().averageCharWidth();
    setWidthOfColumn(1, captions);
    setWidthOfColumn(2, std::max(leastForValues, clientWidth() - widthOfColumn(1)));
}

/// The width of the text with the most characters, which need not be the widest: users know the column so.
int CGeneralGrid::widthOfCaptions() const {
    QString longest = QStringLiteral(" ");
    for (int row = 1; row <= rowCount(); ++row) {
        if (const QString text = cellText(row, 1); text.size() > longest.size())
            longest = text;
    }
    return fontMetrics().horizontalAdvance(longest);
}

} // namespace ovsettings
