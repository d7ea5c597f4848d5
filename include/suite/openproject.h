#pragma once

#include "orv/projectconfiguration.h"
#include "suite/export.h"

#include <memory>
#include <string>

namespace NProjectTools {

/// A project as a host has it open: the record for the settings dialog, and behind it the project file, its
/// library list and the parsed files that the project names.
class OVSUITE_API COpenProject {
public:
    /// Opens a project file. @return null if it cannot be opened; `error` then says why, path included.
    static std::unique_ptr<COpenProject> open(const std::string& path, std::string& error);
    ~COpenProject();
    COpenProject(const COpenProject&) = delete;
    COpenProject& operator=(const COpenProject&) = delete;

    /// Every pointer in it is valid as long as this object.
    Orv::CProjectConfiguration& configuration();

    /// Writes the library list into the project file, for when the record says that it changed.
    /// @return false, with the file as it was, if it cannot be written; the error handler was told.
    bool saveLibraries();

private:
    COpenProject();

    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace NProjectTools
