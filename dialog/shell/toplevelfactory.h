#pragma once

#include <memory>
#include <string>
#include <vector>

namespace Orv {
struct CProjectConfiguration;
}

namespace ovsettings {

class CTopLevelFactory;
class CFactoryEx;
class ITopLevelDialogProvider;

/// The factory of the pages of single designs, for one provider at a time. The pages exist from its building
/// on; it deletes those that no window has taken. Each dialog has one of its own, so that a second dialog,
/// opened while the first is up, takes nothing from it.
class CTopLevelFactories {
public:
    CTopLevelFactories();
    ~CTopLevelFactories();

    /// Fetches the names of the designs, for the next building.
    std::vector<std::string> fetchNames(const Orv::CProjectConfiguration* projectConfig);

    /// The factory of a provider's pages; it is built if there is none or that of another provider.
    /// @param provider null means the one of getTopLevelSettingsProvider.
    /// @return null if no design names were fetched.
    CFactoryEx* factoryOf(ITopLevelDialogProvider* provider);

private:
    std::vector<std::string> names_;
    std::unique_ptr<CTopLevelFactory> factory_;
};

} // namespace ovsettings
