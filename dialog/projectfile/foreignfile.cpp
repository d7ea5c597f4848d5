#include "dialog/projectfile/foreignfile.h"

#include "dialog/projectfile/ownplace.h"
#include "dialog/projectfile/projectpaths.h"
#include "dialog/projectfile/savequestion.h"
#include "orv/projectconfiguration.h"
#include "orv/projectfiledata.h"
#include "platform/paths.h"
#include "platform/writtenplace.h"

#include <optional>
#include <utility>

namespace ovsettings {

namespace {

/// A project file and a place, as the user has allowed the one to write to the other.
using Leave = std::pair<std::string, std::string>;

std::set<Leave>& leaves() {
    static std::set<Leave> given;
    return given;
}

Leave leaveFor(const Orv::CProjectConfiguration& project, const std::string& place) {
    return {project.projectFile->GetFilePath(), place};
}

/// The place that needs leave which was not given.
std::optional<std::string> findForbidden(const Orv::CProjectConfiguration& project, const std::string& path) {
    const auto place = platform::placeOfWrite(path);
    const bool isForbidden =
        place && !leaves().contains(leaveFor(project, *place)) && !isOwnPlace(*place, project);
    return isForbidden ? place : std::nullopt;
}

} // namespace

void noteNamedByUser(const Orv::CProjectConfiguration& project, const std::string& path) {
    const auto place = platform::placeOfWrite(path);
    // Where a link of the project leads out of it, the user has seen one place and not the other.
    const std::string directory = platform::fullPath(projectDirectory(project));
    const bool seemsBelow = platform::restBehind(platform::platformPath(path), directory).has_value();
    if (place && (!seemsBelow || platform::isBelow(*place, directory)))
        leaves().insert(leaveFor(project, *place));
}

bool ForeignFile::isAllowed(const Orv::CProjectConfiguration& project, const std::string& path) {
    return !findForbidden(project, path);
}

bool ForeignFile::mayWrite(QWidget& page, const Orv::CProjectConfiguration& project,
                           const std::string& path) {
    const auto place = findForbidden(project, path);
    if (!place)
        return true;
    if (declined_.contains(*place)) {
        tellDeclinedFile(page, *place);
        return false;
    }
    if (!asksToWriteForeignFile(page, *place)) {
        declined_.insert(*place);
        return false;
    }
    leaves().insert(leaveFor(project, *place));
    return true;
}

} // namespace ovsettings
