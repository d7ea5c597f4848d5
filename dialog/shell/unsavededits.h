#pragma once

namespace ovsettings {

/// What a page is besides, if the user's edits on it are something else than its news for the host: a page
/// may report nothing, or have stored already what it is yet to report.
class IUnsavedEdits {
public:
    /// True while a control stands for a value that is lost where the dialog goes without storing it. Asked
    /// in place of isModified.
    virtual bool hasUnsavedEdits() const = 0;

protected:
    ~IUnsavedEdits() = default;
};

} // namespace ovsettings
