#include "dialog/projectfile/ownplace.h"

#include "dialog/projectfile/projectpaths.h"
#include "orv/centrallibrarystate.h"
#include "orv/projectconfiguration.h"
#include "orv/projectfiledata.h"
#include "platform/environment.h"
#include "platform/installation.h"
#include "platform/paths.h"
#include "platform/writtenplace.h"
#include "suite/symbollibs.h"
#include "suite/wdirutils.h"
#include "suite/zec.h"

#include <algorithm>
#include <vector>

namespace ovsettings {

namespace {

/// In a directory or below it, and nothing hidden on the way: no file of a project is, and files that act
/// are.
bool isInPlainSight(const std::string& place, const std::string& directory) {
    const auto rest = platform::restBelow(place, directory);
    return rest && rest->find("/.") == std::string::npos;
}

/// Whether a directory that the project calls a library may be one, and not a place that it would like to
/// write to.
bool isCredibleLibrary(const std::string& directory, const std::string& ownDirectory) {
    const std::string home = platform::environmentVariable("HOME").value_or("");
    const auto holds = [&](const std::string& other) {
        return !other.empty() && (platform::Place(other) == platform::Place(directory) ||
                                  platform::isBelow(platform::fullPath(other), directory));
    };
    return ZECIsValidLibrary(directory, 1) != 0 && !holds(home) && !holds(ownDirectory) &&
           directory.find("/.") == std::string::npos;
}

bool isInALibrary(const std::string& place, const Orv::CProjectConfiguration& project) {
    if (project.centralLibraryState && project.centralLibraryState->IsAttached() &&
        isInPlainSight(place, platform::directoryOf(project.projectFile->GetCentralLibraryPath(1))))
        return true;
    if (!project.symbolLibs)
        return false;
    const std::string ownDirectory = projectDirectory(project);
    const auto libraries = project.symbolLibs->GetLibList();
    return std::ranges::any_of(libraries, [&](const NProjectTools::ISymbolLibrary* library) {
        const std::string directory = library->GetFullPath();
        return isInPlainSight(place, directory) && isCredibleLibrary(directory, ownDirectory);
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
    if (isInPlainSight(place, projectDirectory(project)))
        return true;
    const std::vector<std::string> trusted = trustedDirectories();
    return std::ranges::any_of(trusted,
                               [&](const auto& directory) { return platform::isBelow(place, directory); }) ||
           isInALibrary(place, project);
}

} // namespace ovsettings
