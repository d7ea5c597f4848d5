#pragma once

#include "orv/projectconfiguration.h"

class QWidget;

namespace ovsettings {

/// True if there is a project to read from and write to.
inline bool hasProject(const Orv::CProjectConfiguration* project) {
    return project && project->projectFile;
}

/// True once there is also a control to show it in; null stands for a page that has none yet.
inline bool showsProject(const QWidget* control, const Orv::CProjectConfiguration* project) {
    return control && hasProject(project);
}

} // namespace ovsettings
