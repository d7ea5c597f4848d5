#pragma once

class QKeyEvent;
class QModelIndex;

namespace ovsettings {

/// What the editor of a cell needs of its grid. One editor is open at a time.
class IGridEditing {
public:
    /// Asked before an editor is made; false keeps the cell as it is.
    virtual bool mayStartEditing(const QModelIndex& index) = 0;
    /// Ends an edit in progress, if there is one. A text that is refused is told about and stays in the
    /// editor. @return false if it was refused.
    virtual bool endEdit() = 0;
    /// The focus has gone elsewhere: ends the edit if its text can be taken; another one stays open, and
    /// nothing is said yet.
    virtual void leaveEdit() = 0;
    /// Ends the edit and moves on by Tab or Shift+Tab.
    virtual void tabOutOfEdit(const QKeyEvent& event) = 0;

protected:
    ~IGridEditing() = default;
};

} // namespace ovsettings
