#pragma once

#include "orv/projectfiledata.h"
#include "suite/export.h"

#include <memory>
#include <string>
#include <vector>

namespace NProjectTools {

/// A file of ini kind that a project names, such as its bus contents, held parsed.
class OVSUITE_API CProjectDataFile : public Orv::IProjectFileConsumer {
public:
    CProjectDataFile();
    virtual ~CProjectDataFile();
    CProjectDataFile(const CProjectDataFile&) = delete;
    CProjectDataFile& operator=(const CProjectDataFile&) = delete;

    /// Takes the content of another file. Where that cannot be read, the former content stays; an empty path
    /// means no file and no content.
    void Reload(const std::string& path) override;

    /// The keys of a section in the order of the file.
    std::vector<std::string> keys(const std::string& section) const;
    /// The value of an entry, empty if there is none.
    std::string value(const std::string& section, const std::string& key) const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace NProjectTools
