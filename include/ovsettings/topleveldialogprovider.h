#pragma once

#include "ovsettings/export.h"

#include <string>

class QWidget;

namespace ovsettings {

class CPropDialogTemplate;

/// Makes the settings page of one design of the open project. The host chooses the provider in
/// Orv::CProjectConfiguration::topLevelProvider.
class OVSETTINGS_API ITopLevelDialogProvider {
public:
    /// @param parent     the widget that becomes the page's parent, or null.
    /// @param designName the name of the design, UTF-8.
    /// @return a new page owned by the caller, or null.
    virtual CPropDialogTemplate* createDialog(QWidget* parent, const std::string& designName) = 0;

protected:
    ~ITopLevelDialogProvider() = default;
};

} // namespace ovsettings
