#pragma once

#include <string>

namespace ovsettings {
class ITopLevelDialogProvider;
}

namespace NProjectTools {
class CSymbolLibs;
}

namespace Orv {

class ICentralLibraryState;
class IProjectFileConsumer;
class IProjectFileData;
class IPropertyFilter;
class ISymbolReader;

/// The record of the open project, filled by the host. Every pointer belongs to the host, must outlive
/// showSettingsDialog, and may be null; with a null `projectFile` no project is open. Pages write through it
/// at once, without a transaction.
struct CProjectConfiguration {
    IProjectFileData* projectFile = nullptr;
    IProjectFileConsumer* borderSymbols = nullptr; ///< holds the parsed border symbols file
    IProjectFileConsumer* pinComponents = nullptr; ///< holds the parsed special components file
    IProjectFileConsumer* busContents = nullptr;   ///< holds the parsed bus contents file
    ISymbolReader* symbolReader = nullptr;         ///< says which properties a library symbol has
    NProjectTools::CSymbolLibs* symbolLibs = nullptr;
    ICentralLibraryState* centralLibraryState = nullptr; ///< says whether a central library is attached
    ovsettings::ITopLevelDialogProvider* topLevelProvider = nullptr;
    IPropertyFilter* propertyFilter = nullptr;

    /// Set by the pages of single designs, and never cleared here; the host reads it after the dialog.
    bool topLevelChanged = false;
    /// Set by the Symbol Libraries page, and never cleared here.
    bool librariesChanged = false;

    /// Full path of the project file.
    std::string projectFilePath;
};

} // namespace Orv
