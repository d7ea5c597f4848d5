#pragma once

#include <memory>
#include <string>
#include <vector>

namespace Orv {
struct CProjectConfiguration;
}

namespace ovsettings {

class TopLevelFactory;
class CFactoryEx;
class ITopLevelDialogProvider;

/// Makes the factory of the pages of single designs, for one provider at a time. The pages are made together
/// with the factory, which deletes those that were never put into a window. Each dialog has its own, so that
/// a second dialog, opened while the first is up, takes no page away from it.
class TopLevelFactories {
public:
    TopLevelFactories();
    ~TopLevelFactories();

    /// Fetches the names of the designs, for the next building.
    std::vector<std::string> fetchNames(const Orv::CProjectConfiguration* projectConfig);

    /// The factory of a provider's pages; it is built if there is none or that of another provider.
    /// @param provider null means the one of getTopLevelSettingsProvider.
    /// @return null if no design names were fetched.
    CFactoryEx* factoryOf(ITopLevelDialogProvider* provider);

private:
    std::vector<std::string> names_;
    std::unique_ptr<TopLevelFactory> factory_;
};

} // namespace ovsettings
