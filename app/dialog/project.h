#pragma once

#include "app/options.h"
#include "platform/result.h"

#include <orv/projectconfiguration.h>

#include <memory>

namespace NProjectTools {
class COpenProject;
}

namespace app {

/// The project of a run, as the options name it, or none.
class Project {
public:
    Project();
    ~Project();
    Project(const Project&) = delete;
    Project& operator=(const Project&) = delete;

    /// Opens what the options name.
    platform::Result<> open(const Options& options);
    Orv::CProjectConfiguration& configuration();
    /// Writes the library list into the project file if the dialog has changed it. What cannot be written is
    /// told to the error handler, and tried again the next time.
    void saveLibraries();

private:
    std::unique_ptr<NProjectTools::COpenProject> opened_;
    Orv::CProjectConfiguration none_;
};

} // namespace app
