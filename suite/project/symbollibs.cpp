#include "suite/symbollibs.h"

#include "details/platform/paths.h"
#include "orv/projectfiledata.h"
#include "suite/project/librarysection.h"
#include "suite/project/locationmap.h"
#include "suite/project/textfile.h"

#include <vector>

namespace NProjectTools {

namespace {

class SymbolLibrary final : public ISymbolLibrary {
public:
    SymbolLibrary(suite::LibraryEntry entry, std::string fullPath)
        : entry_(std::move(entry)), fullPath_(std::move(fullPath)) {}

    std::string GetFullPath() const override { return fullPath_; }
    std::string GetLocation() const override { return entry_.location; }
    std::string GetAlias() const override { return entry_.alias; }
    int GetType() const override { return entry_.type; }

private:
    suite::LibraryEntry entry_;
    std::string fullPath_;
};

} // namespace

struct CSymbolLibs::Impl {
    /// In a list, since those who were handed a library keep it while others are added.
    std::list<SymbolLibrary> libraries;
};

CSymbolLibs::CSymbolLibs() : impl_(std::make_unique<Impl>()) {
}

CSymbolLibs::~CSymbolLibs() = default;

std::list<ISymbolLibrary*> CSymbolLibs::GetLibList() {
    std::list<ISymbolLibrary*> list;
    for (SymbolLibrary& library : impl_->libraries)
        list.push_back(&library);
    return list;
}

bool CSymbolLibs::Load(Orv::IProjectFileData* project) {
    return project && Load(project->GetFilePath());
}

bool CSymbolLibs::Load(const std::string& path) {
    if (path.empty())
        return false;
    const std::string full = platform::fullPath(path);
    std::string bytes;
    if (suite::readTextFile(full, bytes))
        return false;
    const auto map = suite::LocationMap::ofProject(full);
    Clear();
    platform::RememberedDirectories directories;
    const platform::RememberedDirectories::Use use(directories);
    for (const suite::LibraryEntry& entry : suite::readLibraries(platform::ProfileDocument(bytes)))
        AddLibrary(entry.alias, entry.location, map.fullPath(entry.location), entry.type);
    return true;
}

void CSymbolLibs::Clear() {
    impl_->libraries.clear();
}

void CSymbolLibs::AddLibrary(const std::string& alias, const std::string& location,
                             const std::string& fullPath, int type) {
    impl_->libraries.emplace_back(suite::LibraryEntry{alias, location, type}, fullPath);
}

} // namespace NProjectTools
