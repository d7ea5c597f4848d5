#pragma once

#include "orv/projectconfiguration.h"

class QWidget;

namespace ovsettings {

/// True if there is a project to read from and write to.
inline bool hasProject(const Orv::CProjectConfiguration* project) {
    return project && project->projectFile;
}

/// True if there is also a control to show it in.
/// @param control null while the page is not built.
inline bool showsProject(const QWidget* control, const Orv::CProjectConfiguration* project) {
    return control && hasProject(project);
}

} // namespace ovsettings
