#pragma once

namespace ovsettings {

/// What a page is besides, if it does not report itself to the host, and the user's edits on it can be lost
/// all the same.
class IUnreportedEdits {
public:
    /// True while a control stands for another value than when the page was filled or last stored.
    virtual bool hasUnreportedEdits() const = 0;

protected:
    ~IUnreportedEdits() = default;
};

} // namespace ovsettings
