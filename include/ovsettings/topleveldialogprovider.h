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

namespace toplevelsettings {

/// The providers of this library, for Orv::CProjectConfiguration::topLevelProvider, and for programs that
/// show a design's page without the dialog: those own the page that createDialog gives them, hand it the
/// configuration objects and call its createWindow. The objects live as long as the library is loaded.

/// Pages with top-level block, annotation, conflicts and library search path.
OVSETTINGS_API ovsettings::ITopLevelDialogProvider* getTopLevelSettingsProvider();
/// Pages with the top-level block alone, for projects of the netlist tool.
OVSETTINGS_API ovsettings::ITopLevelDialogProvider* getNetlistTopLevelProvider();

} // namespace toplevelsettings
