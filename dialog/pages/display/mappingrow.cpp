#include "dialog/pages/display/mappingrow.h"

#include "dialog/pages/display/editgrid.h"
#include "dialog/widgets/grid/gridwnd.h"
#include "dialog/widgets/lockmark.h"
#include "dialog/widgets/messagebox.h"
#include "dialog/widgets/stringconversion.h"
#include "store/appcfg.h"
#include "store/colors.h"
#include "store/numbers.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <cassert>
#include <utility>

namespace ovsettings {

namespace {

// The editor's own names, the same in every language.
constexpr const char* kFillNames[] = {
    "Hollow", "Solid", "Diagdn1", "Diagup2", "Grey08", "Diagdn2", "Diagup1", "Horiz",
    "Vert",   "Grid2", "Grid1",   "X2",      "X1",     "Grey50",  "Grey92",  "Grey04",
};
constexpr const char* kLineNames[] = {
    "Solid", "Dash", "Center", "Phantom", "Big dash", "Dot", "Dash-Dot", "Medium Dash",
};
constexpr const char* kFontNames[] = {
    "Fixed",  "Roman",           "Roman Italic", "Roman Bold", "Roman Bold Italic", "Sans Serif",
    "Script", "Sans Serif Bold", "Script Bold",  "Gothic",     "Old English",       "Kanji",
    "Plot",
};

constexpr int kClosed = -1;
constexpr int kOpen = 0; ///< the least value of an open column, whatever the configuration says
constexpr int kListWidth = 150;
constexpr std::size_t kNone = static_cast<std::size_t>(-1);
constexpr MappingFields kObjectFields{CMappingRow::kColorColumn, 2, kNone, 3, 4, 5};
constexpr MappingFields kTextFields{CMappingRow::kTextColumn, 2, kNone, 3, 4, kNone};
constexpr MappingFields kLayerFields{CMappingRow::kColorColumn, 0, kNone, 1, 2, kNone};
constexpr MappingFields kIctFields{CMappingRow::kColorColumn, 0, 1, kNone, kNone, kNone};
constexpr std::size_t kLayerFontField = 3;

constexpr int kStartingIctTextColor = 0xff0000;

template <std::size_t Count>
CMappingRow::Names numbered(const char* const (&names)[Count]) {
    CMappingRow::Names numbered;
    for (std::size_t i = 0; i < Count; ++i)
        numbered.emplace(static_cast<int>(i), names[i]);
    return numbered;
}

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

QStringList choicesOf(const CMappingRow::Names& names) {
    QStringList choices;
    for (const auto& [index, name] : names)
        choices << toQString(name);
    return choices;
}

MappingValues withColorOfText(MappingValues values) {
    values.color = std::exchange(values.textColor, kClosed);
    return values;
}

MappingValues ictValues(int startingColor) {
    MappingValues values;
    values.color = startingColor;
    values.textColor = kStartingIctTextColor;
    return values;
}

} // namespace

CMappingRow::CMappingRow(GridWnd& grid, Orv::iAppConfiguration& configuration, int row, std::string caption,
                         std::string key, const MappingValues& values)
    : color_(values.color),
      textColor_(values.textColor),
      fill_(values.fill),
      line_(values.line),
      font_(values.font),
      width_(values.width),
      row_(row),
      caption_(std::move(caption)),
      key_(std::move(key)),
      grid_(grid),
      configuration_(configuration) {
}

CMappingRow::~CMappingRow() = default;

bool CMappingRow::validate() {
    const int width = getWidth();
    const GridCellLimits limits = CEditGrid::limits();
    if (width == kClosed || (width >= limits.minimum && width <= limits.maximum) ||
        !isUsersToMend(grid_.cellStyle(row_, kWidthColumn)))
        return true;
    showMessage(&grid_, limits.message);
    grid_.setCurrentCell(row_, kWidthColumn);
    grid_.setFocus();
    return false;
}

void CMappingRow::store() {
    storeColor(kObjectFields.color, getColor());
    storeFontOrFill(kObjectFields.fillOrFont);
    // A font goes into both fields, for older editors, which take fill and line of a text from there.
    if (getLine() != kClosed)
        storeField(kObjectFields.line, getLine());
    else if (getFont() != kClosed)
        storeField(kObjectFields.line, getFont());
    if (getWidth() != kClosed)
        storeField(kObjectFields.width, getWidth());
}

void CMappingRow::applySchema(const std::string& color, const std::string& text) {
    takeSchemaColors(kObjectFields, color, text);
}

std::string CMappingRow::getSchemaKey() const {
    return caption_;
}

void CMappingRow::setColor(int color) {
    color_ = color;
    showColor(kColorColumn, color);
}

int CMappingRow::getColor() const {
    return color_;
}

void CMappingRow::setTextColor(int color) {
    textColor_ = color;
    showColor(kTextColumn, color);
}

int CMappingRow::getTextColor() const {
    return textColor_;
}

void CMappingRow::setFill(int fill) {
    fill_ = fill;
}

int CMappingRow::getFill() const {
    return indexOfName(fillNames_, kFillColumn, fill_);
}

void CMappingRow::setLine(int line) {
    line_ = line;
}

int CMappingRow::getLine() const {
    return indexOfName(lineNames_, kLineColumn, line_);
}

void CMappingRow::setFont(int font) {
    font_ = font;
}

int CMappingRow::getFont() const {
    return indexOfName(fontNames_, kFontColumn, font_);
}

void CMappingRow::setWidth(int width) {
    width_ = width;
}

int CMappingRow::getWidth() const {
    const QString text = cellText(kWidthColumn);
    if (width_ == kClosed || !std::ranges::all_of(text, isDigit))
        return kClosed;
    return Orv::integerFromText(toUtf8(text));
}

void CMappingRow::read() {
    readCells(kObjectFields);
}

bool CMappingRow::isModified() const {
    return shownValues() != unchanged_;
}

QColor CMappingRow::closedInterior(const GridWnd& grid) {
    return grid.palette().color(QPalette::Window);
}

void CMappingRow::setUnchanged() {
    unchanged_ = saved_ = shownValues();
}

bool CMappingRow::hasUnsavedEdits() const {
    return shownValues() != saved_;
}

void CMappingRow::setSaved() {
    saved_ = shownValues();
}

MappingValues CMappingRow::shownValues() const {
    return {getColor(), getTextColor(), getFill(), getLine(), getFont(), getWidth()};
}

void CMappingRow::follow(DroppedEdits& dropped) {
    const auto values = values_;
    const auto locks = readOnly_;
    noteStored();
    if (values_ == values && readOnly_ == locks)
        return;
    struct {
        int column;
        int MappingValues::*value;
        std::size_t field;
    } const cells[] = {
        {fields_->colorColumn, &MappingValues::color, fields_->color},
        {kTextColumn, &MappingValues::textColor, fields_->textColor},
        {kFillColumn, &MappingValues::fill, fields_->fillOrFont},
        {kFontColumn, &MappingValues::font, fields_->fillOrFont},
        {kLineColumn, &MappingValues::line, fields_->line},
        {kWidthColumn, &MappingValues::width, fields_->width},
    };
    const MappingValues shown = shownValues();
    const MappingValues before = unchanged_;
    std::map<int, QString> texts;
    for (const auto& cell : cells) {
        texts.emplace(cell.column, cellText(cell.column));
        if (isLocked(cell.field))
            grid_.giveUpEdit(row_, cell.column);
    }
    read();
    setUnchanged();
    for (const auto& cell : cells) {
        if (cell.field == kNone || shown.*cell.value == before.*cell.value)
            continue;
        if (isLocked(cell.field)) {
            dropped.push_back({key_, cell.field});
            continue;
        }
        keepCell(cell.column, texts[cell.column]);
        unchanged_.*cell.value =
            before.*cell.value; // the host is still to be told of it, even if a scheme file made it be stored
    }
}

void CMappingRow::keepCell(int column, const QString& text) {
    if (column == kColorColumn)
        setColor(text.toInt());
    else if (column == kTextColumn)
        setTextColor(text.toInt());
    else
        grid_.setCellText(row_, column, text);
}

void CMappingRow::noteStored() {
    values_.clear();
    readOnly_.clear();
    Orv::getValues(configuration_, key_, values_, readOnly_);
    assert(values_.size() == readOnly_.size());
}

void CMappingRow::readCells(const MappingFields& fields) {
    fields_ = &fields;
    fillNames_ = numbered(kFillNames);
    lineNames_ = numbered(kLineNames);
    fontNames_ = numbered(kFontNames);
    noteStored();
    showCell(kCaptionColumn, {.readOnly = true, .enabled = false},
             QCoreApplication::translate("ovsettings", caption_.c_str()));
    if (fields.colorColumn == kTextColumn) {
        int none = kClosed;
        readColor(kColorColumn, none, kNone);
        readColor(kTextColumn, color_, fields.color);
    } else {
        readColor(kColorColumn, color_, fields.color);
        readColor(kTextColumn, textColor_, fields.textColor);
    }
    readName(kFillColumn, fill_, fillNames_, fields.fillOrFont);
    readName(kFontColumn, font_, fontNames_, fields.fillOrFont);
    readName(kLineColumn, line_, lineNames_, fields.line);
    readWidth(fields.width);
}

bool CMappingRow::opens(int column, int& value, std::size_t field) {
    if (value != kClosed && field < values_.size())
        return true;
    value = kClosed;
    showCell(column, {.readOnly = true, .enabled = false, .interior = closedInterior(grid_)}, {});
    return false;
}

void CMappingRow::showCell(int column, const GridCellStyle& style, const QString& text) {
    grid_.setCellStyle(row_, column, style);
    grid_.setCellText(row_, column, text);
}

void CMappingRow::showField(int column, GridCellStyle style, std::size_t field, const QString& text) {
    style.setting = SettingField{key_, field};
    if (isLocked(field)) {
        if (style.kind == GridCellKind::dropDown)
            style.kind = GridCellKind::text;
        style.readOnly = style.greyed = true;
        style.interior = closedInterior(grid_);
        style.toolTip = lockToolTip(configuration_, key_, field);
    }
    showCell(column, style, text);
}

void CMappingRow::readColor(int column, int& color, std::size_t field) {
    if (!opens(column, color, field))
        return;
    color = Orv::colorFromText(values_[field]);
    showField(column, {.kind = GridCellKind::color}, field, QString::number(color));
}

void CMappingRow::readName(int column, int& index, Names& names, std::size_t field) {
    if (!opens(column, index, field))
        return;
    const QStringList choices = choicesOf(names);
    const int stored = Orv::integerFromText(values_[field]);
    index = std::max(stored, kOpen);
    // An index without a name gets an empty one, and so is stored again as it was.
    const std::string& name = names[stored];
    showField(column, {.kind = GridCellKind::dropDown, .choices = choices, .listWidth = kListWidth}, field,
              toQString(name));
}

void CMappingRow::readWidth(std::size_t field) {
    if (!opens(kWidthColumn, width_, field))
        return;
    const int stored = Orv::integerFromText(values_[field]);
    width_ = std::max(stored, kOpen);
    showField(kWidthColumn, {.limits = CEditGrid::limits()}, field, QString::number(stored));
}

QString CMappingRow::cellText(int column) const {
    return grid_.cellText(row_, column);
}

int CMappingRow::indexOfName(const Names& names, int column, int index) const {
    if (index == kClosed)
        return kClosed;
    const std::string shown = toUtf8(cellText(column));
    const auto found = std::ranges::find(names, shown, &Names::value_type::second);
    return found == names.end() ? 0 : found->first;
}

bool CMappingRow::isLocked(std::size_t field) const {
    return field < readOnly_.size() && readOnly_[field];
}

void CMappingRow::storeField(std::size_t field, int number) {
    Orv::setValueAt(configuration_, field, key_, Orv::integerToText(number));
}

void CMappingRow::storeColor(std::size_t field, int color) {
    Orv::setValueAt(configuration_, field, key_, Orv::colorToShortText(color));
}

void CMappingRow::storeFontOrFill(std::size_t field) {
    storeField(field, getFont() != kClosed ? getFont() : getFill());
}

void CMappingRow::showColor(int column, int color) {
    grid_.setCellText(row_, column, QString::number(color));
}

void CMappingRow::takeSchemaColors(const MappingFields& fields, const std::string& color,
                                   const std::string& text) {
    if (color_ != kClosed && !isLocked(fields.color))
        CMappingRow::setColor(Orv::colorFromText(color));
    if (textColor_ != kClosed && !isLocked(fields.textColor))
        CMappingRow::setTextColor(Orv::colorFromText(text));
}

void CMappingRowLayer::store() {
    storeColor(kLayerFields.color, getColor());
    if (getFont() != kClosed || getFill() != kClosed)
        storeFontOrFill(kLayerFields.fillOrFont);
    if (getLine() != kClosed)
        storeField(kLayerFields.line, getLine());
    else if (getFont() != kClosed)
        storeField(kLayerFontField, getFont());
}

void CMappingRowLayer::applySchema(const std::string& color, const std::string& text) {
    takeSchemaColors(kLayerFields, color, text);
}

std::string CMappingRowLayer::getSchemaKey() const {
    return caption() + "_LAYER";
}

void CMappingRowLayer::read() {
    readCells(kLayerFields);
}

CMappingTextLayer::CMappingTextLayer(GridWnd& grid, Orv::iAppConfiguration& configuration, int row,
                                     std::string caption, std::string key, const MappingValues& values)
    : CMappingRow(grid, configuration, row, std::move(caption), std::move(key), withColorOfText(values)) {
}

void CMappingTextLayer::applySchema(const std::string&, const std::string& text) {
    if (color_ != kClosed && !isLocked(kTextFields.color))
        setColor(Orv::colorFromText(text));
}

void CMappingTextLayer::setColor(int color) {
    color_ = color;
    showColor(kTextColumn, color);
}

void CMappingTextLayer::setTextColor(int color) {
    setColor(color);
}

int CMappingTextLayer::getTextColor() const {
    return getColor();
}

void CMappingTextLayer::read() {
    readCells(kTextFields);
}

CMappingICTObject::CMappingICTObject(GridWnd& grid, Orv::iAppConfiguration& configuration, int row,
                                     std::string caption, std::string name, int startingColor)
    : CMappingRow(grid, configuration, row, std::move(caption), keyOf(name), ictValues(startingColor)),
      name_(std::move(name)) {
}

void CMappingICTObject::store() {
    int color = 0, textColor = 0;
    if (!configuration().getIctColors(name_, color, textColor))
        return;
    // The typed operation does not look at locks; the colours of locked fields never change here.
    configuration().setIctColors(name_, getColor() == kClosed ? color : getColor(),
                                 getTextColor() == kClosed ? textColor : getTextColor());
}

void CMappingICTObject::applySchema(const std::string& color, const std::string& text) {
    takeSchemaColors(kIctFields, color, text);
}

void CMappingICTObject::read() {
    if (Orv::iAppConfiguration::kindOf(key()) != Orv::iAppConfiguration::KindIctObject)
        assert(false);
    readCells(kIctFields);
}

} // namespace ovsettings
