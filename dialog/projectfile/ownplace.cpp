#include "dialog/projectfile/ownplace.h"

#include "dialog/projectfile/projectpaths.h"
#include "orv/centrallibrarystate.h"
#include "orv/projectconfiguration.h"
#include "orv/projectfiledata.h"
#include "platform/installation.h"
#include "platform/paths.h"
#include "platform/writtenplace.h"
#include "suite/symbollibs.h"
#include "suite/wdirutils.h"

#include <algorithm>
#include <vector>

namespace ovsettings {

namespace {

bool isInPlainSight(const std::string& place) {
    return place.find("/.") == std::string::npos;
}

bool isInALibrary(const std::string& place, const Orv::CProjectConfiguration& project) {
    if (project.centralLibraryState && project.centralLibraryState->IsAttached() &&
        platform::isBelow(place, platform::directoryOf(project.projectFile->GetCentralLibraryPath(1))))
        return true;
    if (!project.symbolLibs)
        return false;
    const auto libraries = project.symbolLibs->GetLibList();
    return std::ranges::any_of(libraries, [&](const NProjectTools::ISymbolLibrary* library) {
        return platform::isBelow(place, library->GetFullPath());
    });
}

/// Those whose writers are trusted with what the user runs.
std::vector<std::string> trustedDirectories() {
    std::vector<std::string> directories;
    Orv::WdirUtils::GetWDIRs(directories);
    directories.push_back(platform::installationDirectory());
    std::erase(directories, "");
    return directories;
}

} // namespace

bool isOwnPlace(const std::string& place, const Orv::CProjectConfiguration& project) {
    if (platform::isBelow(place, platform::directoryOf(project.projectFile->GetFilePath())))
        return true;
    const std::vector<std::string> trusted = trustedDirectories();
    return std::ranges::any_of(trusted,
                               [&](const auto& directory) { return platform::isBelow(place, directory); }) ||
           (isInPlainSight(place) && isInALibrary(place, project));
}

} // namespace ovsettings
