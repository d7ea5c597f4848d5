#include "dialog/pages/display/mappinggrid.h"

#include "dialog/pages/display/editgrid.h"
#include "dialog/widgets/colorbutton.h"
#include "store/appcfg.h"
#include "store/colors.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>

#include <algorithm>

namespace ovsettings {

namespace {

struct GridColumn {
    const char* header;
    int characters; ///< the width, of average characters
};

/// In the order of the columns, from 1.
constexpr GridColumn kGridColumns[CMappingRow::kColumns] = {
    {QT_TRANSLATE_NOOP("ovsettings", "Object"), 16},     {QT_TRANSLATE_NOOP("ovsettings", "Color"), 7},
    {QT_TRANSLATE_NOOP("ovsettings", "Text"), 5},        {QT_TRANSLATE_NOOP("ovsettings", "Fill Style"), 12},
    {QT_TRANSLATE_NOOP("ovsettings", "Line Style"), 11}, {QT_TRANSLATE_NOOP("ovsettings", "Font"), 12},
    {QT_TRANSLATE_NOOP("ovsettings", "Width"), 8},
};

} // namespace

void CMappingGrid::CMappingGridColorChangeNotifier::onColorChanged(int row, int column, int color) {
    grid_.changeColor(row, column, color);
}

CMappingGrid::CMappingGrid(QWidget* parent) : GridWnd(parent), notifier_(*this) {
}

CMappingGrid::~CMappingGrid() = default;

void CMappingGrid::offerPalette() {
    std::vector<std::string> texts;
    Orv::getValues(*appConfig_, "SCREEN", texts);
    std::vector<int> palette(texts.size());
    std::ranges::transform(texts, palette.begin(), Orv::colorFromText);
    colorButton_->setPalette(std::move(palette));
}

void CMappingGrid::init() {
    colorButton_ = new ColorButton(*this);
    offerPalette();
    colorButton_->setObserver(&notifier_);
    setRowCount(1);
    setColumnCount(CMappingRow::kColumns);
    showHeaders(true, false);
    layoutColumns();
    for (int column = 1; column <= CMappingRow::kColumns; ++column)
        setCellText(0, column, QCoreApplication::translate("ovsettings", kGridColumns[column - 1].header));
}

template <typename Row, typename... Arguments>
void CMappingGrid::append(const std::string& caption, const std::string& key, Arguments&&... arguments) {
    const int number = mappingRowCount() + 1;
    rows_.push_back(std::make_unique<Row>(*this, *appConfig_, number, caption, key,
                                          std::forward<Arguments>(arguments)...));
    setRowCount(number);
    rows_.back()->read();
    rows_.back()->setUnchanged();
    rowsOfKeys_[key] = rows_.back().get();
    keysOfRows_[number] = key;
}

void CMappingGrid::addRow(const std::string& caption, const std::string& key, const MappingValues& values) {
    append<CMappingRow>(caption, key, values);
}

void CMappingGrid::addLayerRow(const std::string& caption, const std::string& key,
                               const MappingValues& values) {
    append<CMappingRowLayer>(caption, key, values);
}

void CMappingGrid::addTextRow(const std::string& caption, const std::string& key,
                              const MappingValues& values) {
    append<CMappingTextLayer>(caption, key, values);
}

void CMappingGrid::addIctRow(const std::string& caption, const std::string& key, int startingColor, int) {
    append<CMappingICTObject>(caption, key, startingColor);
}

CMappingRow* CMappingGrid::mappingRow(int row) const {
    const auto key = keysOfRows_.find(row);
    return key == keysOfRows_.end() ? nullptr : rowOfKey(key->second);
}

CMappingRow* CMappingGrid::rowOfKey(std::string_view key) const {
    const auto row = rowsOfKeys_.find(key);
    return row == rowsOfKeys_.end() ? nullptr : row->second;
}

bool CMappingGrid::validate() {
    // A text that is refused has been told about, and stays in its cell.
    if (!endEdit())
        return false;
    bool valid = true;
    for (const auto& row : rows_)
        valid = row->validate() && valid;
    return valid;
}

void CMappingGrid::store() {
    for (const auto& row : rows_) {
        row->store();
        row->noteStored();
    }
}

void CMappingGrid::follow(DroppedEdits& dropped) {
    for (const auto& row : rows_)
        row->follow(dropped);
    offerPalette();
}

bool CMappingGrid::isModified() const {
    return std::ranges::any_of(rows_, [](const auto& row) { return row->isModified(); });
}

void CMappingGrid::setUnchanged() {
    for (const auto& row : rows_)
        row->setUnchanged();
}

bool CMappingGrid::hasUnsavedEdits() const {
    return std::ranges::any_of(rows_, [](const auto& row) { return row->hasUnsavedEdits(); });
}

void CMappingGrid::setSaved() {
    for (const auto& row : rows_)
        row->setSaved();
}

void CMappingGrid::changeColor(int row, int column, int color) {
    if (CMappingRow* changed = mappingRow(row)) {
        if (column == CMappingRow::kColorColumn)
            changed->setColor(color);
        else
            changed->setTextColor(color);
    }
    endEdit();
    viewport()->update();
    if (preview_)
        preview_->repaint();
}

QString CMappingGrid::refusal(int row, int column, const QString& text) const {
    if (column == CMappingRow::kWidthColumn && !CEditGrid::takes(text))
        return CEditGrid::limits().message;
    return GridWnd::refusal(row, column, text);
}

void CMappingGrid::onCellPressed(int row, int column) {
    colorButton_->initForCell(row, column);
    colorButton_->open();
}

void CMappingGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    if (colorButton_)
        colorButton_->hideButton();
    GridWnd::currentChanged(current, previous);
}

void CMappingGrid::layoutColumns() {
    const int unit = fontMetrics().averageCharWidth();
    // The first column shows every caption whole, and a colour gains nothing from more room; the others share
    // what is left.
    const int first = std::max(kGridColumns[0].characters * unit, sizeHintForColumn(0));
    const int second = kGridColumns[1].characters * unit;
    setWidthOfColumn(1, first);
    setWidthOfColumn(2, second);
    int characters = 0;
    for (int column = 3; column <= CMappingRow::kColumns; ++column)
        characters += kGridColumns[column - 1].characters;
    for (int column = 3; column <= CMappingRow::kColumns; ++column) {
        const int share = kGridColumns[column - 1].characters;
        // In a narrow dialog they give way, down to where nothing could be read.
        setWidthOfColumn(column,
                         std::max(share * unit / 2, (clientWidth() - first - second) * share / characters));
    }
}

void CMappingGrid::changeEvent(QEvent* event) {
    GridWnd::changeEvent(event);
    if (event->type() != QEvent::PaletteChange)
        return;
    for (int row = 1; row <= rowCount(); ++row) {
        for (int column = 1; column <= columnCount(); ++column) {
            GridCellStyle style = cellStyle(row, column);
            if (!style.interior)
                continue;
            style.interior = CMappingRow::closedInterior(*this);
            setCellStyle(row, column, style);
        }
    }
}

} // namespace ovsettings
