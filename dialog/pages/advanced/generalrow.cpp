#include "dialog/pages/advanced/generalrow.h"

#include "dialog/widgets/grid/gridwnd.h"
#include "dialog/widgets/lockmark.h"
#include "dialog/widgets/messagebox.h"
#include "dialog/widgets/stringconversion.h"
#include "store/appcfg.h"

#include <algorithm>

namespace ovsettings {

CGeneralRow::CGeneralRow(GridWnd& grid, Orv::iAppConfiguration& configuration, std::string caption)
    : grid_(grid), configuration_(&configuration), caption_(std::move(caption)) {
}

CGeneralRow::~CGeneralRow() = default;

void CGeneralRow::setKey(const std::string& key) {
    key_ = key;
}

const std::string& CGeneralRow::getKey() const {
    return key_;
}

bool CGeneralRow::validate() {
    return true;
}

void CGeneralRow::takeRows(unsigned rowIndex, unsigned rows) {
    rowIndex_ = rowIndex;
    grid_.setRowCount(std::max(grid_.rowCount(), static_cast<int>(rowIndex + rows - 1)));
}

void CGeneralRow::showCaption(const QString& text) {
    const auto row = static_cast<int>(rowIndex_);
    GridCellStyle style = grid_.cellStyle(row, kCaptionColumn);
    style.readOnly = true;
    style.enabled = false;
    grid_.setCellStyle(row, kCaptionColumn, style);
    grid_.setCellText(row, kCaptionColumn, text);
}

void CGeneralRow::showValueStyle(GridCellStyle style, bool locked) {
    const auto row = static_cast<int>(rowIndex_);
    style.setting = SettingField{key_};
    if (locked) {
        style.readOnly = style.greyed = true;
        style.toolTip = lockToolTip(*configuration_, key_);
    }
    GridCellStyle captionStyle = grid_.cellStyle(row, kCaptionColumn);
    captionStyle.greyed = style.greyed;
    captionStyle.toolTip = style.toolTip;
    captionStyle.setting = style.setting;
    grid_.setCellStyle(row, kCaptionColumn, captionStyle);
    grid_.setCellStyle(row, kValueColumn, style);
}

void CGeneralRow::showAnew() {
    grid_.giveUpEdit(static_cast<int>(rowIndex_), kValueColumn);
    init(rowIndex_);
}

QString CGeneralRow::storedValue() const {
    std::string text;
    readKey(text);
    return toQString(text);
}

QString CGeneralRow::valueText() const {
    return grid_.cellText(static_cast<int>(rowIndex_), kValueColumn);
}

void CGeneralRow::setValueText(const QString& text) {
    grid_.setCellText(static_cast<int>(rowIndex_), kValueColumn, text);
}

bool CGeneralRow::isValueEdited() const {
    return grid_.isCellEdited(static_cast<int>(rowIndex_), kValueColumn);
}

bool CGeneralRow::isValueUsersToMend() const {
    return isUsersToMend(grid_.cellStyle(static_cast<int>(rowIndex_), kValueColumn));
}

void CGeneralRow::refuseValue(const QString& message) {
    showMessage(&grid_, message);
    grid_.setCurrentCell(static_cast<int>(rowIndex_), kValueColumn);
    grid_.setFocus();
}

bool CGeneralRow::readKey(std::string& text) const {
    bool locked = false;
    if (!key_.empty())
        Orv::getValue(*configuration_, key_, text, locked);
    return locked;
}

void CGeneralRow::writeKey(const std::string& text) {
    if (!key_.empty())
        Orv::setValue(*configuration_, key_, text);
}

} // namespace ovsettings
