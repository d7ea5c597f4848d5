#include "suite/symbollibs.h"

#include "orv/projectfiledata.h"
#include "platform/paths.h"
#include "suite/files/errorlog.h"
#include "suite/files/textfile.h"
#include "suite/projects/librarysection.h"
#include "suite/projects/softnames.h"

#include <cerrno>
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
    return Load(project, {});
}

bool CSymbolLibs::Load(Orv::IProjectFileData* project, const Progress& progress) {
    return project && Load(project->GetFilePath(), progress);
}

bool CSymbolLibs::Load(const std::string& path) {
    return Load(path, {});
}

bool CSymbolLibs::Load(const std::string& path, const Progress& progress) {
    if (path.empty())
        return false;
    const std::string full = platform::fullPath(path);
    const auto bytes = suite::readTextFile(full, platform::kLargestDocument);
    if (!bytes) {
        if (bytes.code() != ENOENT)
            suite::errorLog().reportOnce(bytes.error());
        return false;
    }
    const auto map = suite::SoftNames::ofProject(full);
    platform::RememberedDirectories directories;
    std::vector<suite::LibraryEntry> entries = suite::readLibraries(platform::ProfileView(*bytes));
    std::list<SymbolLibrary> loaded;
    for (suite::LibraryEntry& entry : entries) {
        if (progress && !progress(loaded.size(), entries.size()))
            return false;
        // Not while others are told of the progress: they may look for what has come to the disk since.
        const platform::RememberedDirectories::Use use(directories);
        std::string fullPath = map.fullPath(entry.location);
        loaded.emplace_back(std::move(entry), std::move(fullPath));
    }
    impl_->libraries = std::move(loaded);
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
