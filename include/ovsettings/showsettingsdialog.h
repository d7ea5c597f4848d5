#pragma once

#include "ovsettings/export.h"

#include <string>

namespace Orv {
class iAppConfiguration;
class IUpdater;
struct CProjectConfiguration;
} // namespace Orv

namespace ovsettings {

/// Under this role, in column 0, each item of the dialog's tree has its category's name as the catalogue has
/// it, whatever the language of its caption: for programs that go through the dialog by its widgets.
inline constexpr int kCategoryNameRole = 0x0101;

/// Opens the modal settings dialog and returns when it has closed.
///
/// Call it on the user-interface thread. A host without a QApplication gets one for the length of the call.
/// The categories come from an XML catalogue in the directory `RSR_HOME`/standard; pages come from this
/// library and from add-ins that the catalogue names.
///
/// @param appConfig         the loaded application configuration; saved on OK, on Apply and, to keep which
///                          page was last open, at each page switch; refreshed, and shown anew where the user
///                          has changed nothing, whenever the application has become active again. Not owned.
/// @param projectConfig     the open project, or a record of null pointers where none is open. Not owned.
/// @param catalogueFileName bare file name that takes the place of "settings.xml" in the same directory.
/// @param updater           told of each successful commit; may be null. Not owned.
/// @return 1 if at least one OK or Apply found every page valid, else 0. Cancel after a successful Apply
/// returns 1.
/// @throws std::logic_error if the host's application object is a QCoreApplication but no QApplication, and
///         whatever an updater, an add-in's page or a component throws while the dialog handles a command.
OVSETTINGS_API int showSettingsDialog(Orv::iAppConfiguration& appConfig,
                                      Orv::CProjectConfiguration& projectConfig,
                                      const std::string& catalogueFileName, Orv::IUpdater* updater);

/// As above, with the catalogue "settings.xml".
OVSETTINGS_API int showSettingsDialog(Orv::iAppConfiguration& appConfig,
                                      Orv::CProjectConfiguration& projectConfig, Orv::IUpdater* updater);

} // namespace ovsettings
