#include "suite/openproject.h"

#include "suite/bordersymbolsfile.h"
#include "suite/files/errorlog.h"
#include "suite/libraries/librarysymbolreader.h"
#include "suite/projectdatafile.h"
#include "suite/projectfile.h"
#include "suite/projects/librarysection.h"
#include "suite/projects/projectfiletext.h"
#include "suite/projects/projectlibrarystate.h"
#include "suite/specialcomponentsfile.h"
#include "suite/symbollibs.h"

namespace NProjectTools {

struct COpenProject::Impl {
    CProjectFile file;
    CSymbolLibs libraries;
    CBorderSymbolsFile borderSymbols;
    CSpecialComponentsFile pinComponents;
    CProjectDataFile busContents;
    suite::ProjectLibraryState centralLibrary{file};
    suite::LibrarySymbolReader symbolReader{file};
    suite::PropertyFilter propertyFilter;
    Orv::CProjectConfiguration configuration;

    /// @return false if the file vanished meanwhile: an empty library list must not be taken for the
    /// project's.
    bool load() {
        if (!libraries.Load(&file))
            return false;
        borderSymbols.Reload(file.GetBorderSymbolsPath(1));
        pinComponents.Reload(file.GetPinComponentsPath(1));
        busContents.Reload(file.GetBusContentsPath(1));
        return true;
    }

    void fillRecord() {
        configuration.projectFile = &file;
        configuration.borderSymbols = &borderSymbols;
        configuration.pinComponents = &pinComponents;
        configuration.busContents = &busContents;
        configuration.symbolReader = &symbolReader;
        configuration.symbolLibs = &libraries;
        configuration.centralLibraryState = &centralLibrary;
        configuration.propertyFilter = &propertyFilter;
        configuration.projectFilePath = file.GetFilePath();
    }
};

COpenProject::COpenProject() : impl_(std::make_unique<Impl>()) {
}

COpenProject::~COpenProject() = default;

std::unique_ptr<COpenProject> COpenProject::open(const std::string& path, std::string& error) {
    std::unique_ptr<COpenProject> project(new COpenProject);
    Impl& impl = *project->impl_;
    if (!impl.file.openProjectFile(path)) {
        error = impl.file.lastError();
        return nullptr;
    }
    if (!impl.load()) {
        error = path + ": the list of libraries cannot be read";
        return nullptr;
    }
    impl.fillRecord();
    error.clear();
    return project;
}

Orv::CProjectConfiguration& COpenProject::configuration() {
    return impl_->configuration;
}

bool COpenProject::saveLibraries() {
    std::vector<suite::LibraryEntry> entries;
    for (const ISymbolLibrary* library : impl_->libraries.GetLibList())
        entries.push_back({library->GetAlias(), library->GetLocation(), library->GetType()});
    suite::ProjectFileText document;
    if (const auto opened = document.open(impl_->file.GetFilePath()); !opened) {
        suite::errorLog().report(opened.error());
        return false;
    }
    return document.change(
        [&](platform::ProfileDocument& content) { return suite::writeLibraries(content, entries); });
}

} // namespace NProjectTools
