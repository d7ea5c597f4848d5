#pragma once

namespace ovsettings {

/// A second base of pages for which isModified does not say whether the user has edits to lose: a page may
/// report nothing to the host, or report what it has stored already.
class IUnsavedEdits {
public:
    /// True while closing the dialog without storing would lose what a control stands for. Asked in place of
    /// isModified.
    virtual bool hasUnsavedEdits() const = 0;

protected:
    ~IUnsavedEdits() = default;
};

} // namespace ovsettings
