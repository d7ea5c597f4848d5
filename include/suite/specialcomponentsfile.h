#pragma once

#include "orv/specialcomponents.h"
#include "suite/export.h"

#include <memory>
#include <string>
#include <vector>

namespace NProjectTools {

/// A special components file of ini kind.
class OVSUITE_API CSpecialComponentsFile : public Orv::ISpecialComponents {
public:
    CSpecialComponentsFile();
    virtual ~CSpecialComponentsFile();
    CSpecialComponentsFile(const CSpecialComponentsFile&) = delete;
    CSpecialComponentsFile& operator=(const CSpecialComponentsFile&) = delete;

    /// Takes the content of another file. Where that cannot be read, the former content stays; an empty path
    /// means no file and no content.
    void Reload(const std::string& path) override;
    /// Makes the file if it is missing. In the file that the content was read from, only the categories that
    /// were changed since are written. A file that the last Reload could not read is refused, and
    /// so is one that has content but no section of this kind.
    void Save(const std::string& path) override;
    /// The lists stay where they are for the life of this object.
    std::vector<std::string>& GetCategory(int index) override;
    std::string GetSaveError() override;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace NProjectTools
