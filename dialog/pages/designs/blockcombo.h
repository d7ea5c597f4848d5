#pragma once

#include <string>

class QComboBox;

namespace Orv {
struct CProjectConfiguration;
}

namespace ovsettings {

class Navigator;

/// Fills the list of blocks from the project's design database, and selects the top-level block of a design
/// if it is among them. A database that cannot be attached leaves the list empty; a damaged one is told.
void fillBlocks(QComboBox& blocks, const Orv::CProjectConfiguration& project, const std::string& design);

/// Stores the selected block, if there is one, and tells the navigator.
/// @return false if the project does not have it now: its file may not be writable.
bool storeBlock(const QComboBox& blocks, const Orv::CProjectConfiguration& project, const std::string& design,
                const Navigator& navigator);

} // namespace ovsettings
