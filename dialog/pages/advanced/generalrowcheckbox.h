#pragma once

#include "dialog/pages/advanced/generalrow.h"

namespace ovsettings {

/// A row with a drop-down list, in spite of its name. It writes no key: what a choice means for which keys is
/// the page's to know.
class CGeneralRowCheckBox : public CGeneralRow {
public:
    using CGeneralRow::CGeneralRow;

    /// The text to show, one of the choices or not.
    void select(const std::string& choice);
    void setLocked(bool locked);

    void store(std::string& text) override;
    /// Adds a choice; a line feed in it makes two of it.
    void setDisplayValue(const std::string& text) override;
    unsigned init(unsigned rowIndex) override;

private:
    std::string choices_;
    std::string current_;
    bool locked_ = false;
};

/// The items of a list of choices, each ended by a line feed.
QStringList choicesFrom(const std::string& choices);

} // namespace ovsettings
