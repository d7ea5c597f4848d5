#pragma once

#include "orv/symbolreader.h"
#include "platform/filestamp.h"
#include "suite/libraries/centrallibrary.h"

#include <string>
#include <utility>
#include <vector>

namespace Orv {
class IProjectFileData;
}

namespace suite {

/// Reads symbols of a project's central library. The index is read when it is first needed, and again when it
/// or the project's choice of it has changed.
class LibrarySymbolReader final : public Orv::ISymbolReader {
public:
    /// @param project must outlive this object.
    explicit LibrarySymbolReader(Orv::IProjectFileData& project) : project_(project) {}

    /// A symbol without a library part is looked for in all partitions, in the order of the index.
    std::vector<std::pair<std::string, std::string>> GetProperties(const std::string& library,
                                                                   const std::string& name) override;

private:
    void update();

    Orv::IProjectFileData& project_;
    std::string path_;
    platform::FileStamp stamp_;
    CentralLibrary library_;
};

/// Leaves out the properties that say which symbol was placed.
class PropertyFilter final : public Orv::IPropertyFilter {
public:
    bool Counts(const std::string& propertyName) override;
};

} // namespace suite
