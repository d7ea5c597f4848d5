#include "app/dialog/project.h"

#include <ovsettings/topleveldialogprovider.h>
#include <suite/openproject.h>

namespace app {

Project::Project() = default;
Project::~Project() = default;

platform::Result<> Project::open(const Options& options) {
    if (!options.project)
        return {};
    std::string reason;
    opened_ = NProjectTools::COpenProject::open(*options.project, reason);
    if (opened_) {
        opened_->configuration().topLevelProvider = options.netlist
                                                        ? toplevelsettings::getNetlistTopLevelProvider()
                                                        : toplevelsettings::getTopLevelSettingsProvider();
        return {};
    }
    return platform::Error{.cause = "the project cannot be opened: " + reason};
}

Orv::CProjectConfiguration& Project::configuration() {
    return opened_ ? opened_->configuration() : none_;
}

void Project::saveLibraries() {
    if (opened_ && configuration().librariesChanged && opened_->saveLibraries())
        configuration().librariesChanged = false;
}

} // namespace app
