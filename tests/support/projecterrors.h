#pragma once

#include "suite/projectfile.h"

#include <string>
#include <vector>

/// Collects what is said of the files of a project that cannot be read or written.
struct ProjectErrors {
    ProjectErrors() {
        NProjectTools::CProjectFile::SetErrorHandler(
            [this](const std::string& error) { errors.push_back(error); });
    }
    ~ProjectErrors() { NProjectTools::CProjectFile::SetErrorHandler({}); }
    ProjectErrors(const ProjectErrors&) = delete;
    ProjectErrors& operator=(const ProjectErrors&) = delete;

    std::vector<std::string> errors;
};
