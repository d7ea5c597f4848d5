#pragma once

#include <string>
#include <vector>

namespace Orv {
struct CProjectConfiguration;
}

namespace ovsettings {

class CFactoryEx;
class ITopLevelDialogProvider;

/// The factory of the pages of single designs. There is one for the process, which serves the frame that is
/// open: the pages exist from its building on, and it deletes those that no window has taken.

/// Fetches the names of the designs, for the next building.
std::vector<std::string> fetchDesignNames(const Orv::CProjectConfiguration* projectConfig);

/// The factory of a provider's pages; it is built if there is none or that of another provider.
/// @param provider null means the one of getTopLevelSettingsProvider.
/// @return null if no design names were fetched.
CFactoryEx* topLevelFactory(ITopLevelDialogProvider* provider);

void destroyTopLevelFactory();

} // namespace ovsettings
