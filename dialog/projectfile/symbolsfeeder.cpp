#include "dialog/projectfile/symbolsfeeder.h"

#include "orv/centrallibrarystate.h"
#include "orv/projectconfiguration.h"
#include "orv/projectfiledata.h"

#include <utility>

namespace ovsettings {

CSymbolsFeeder::CSymbolsFeeder(Orv::CProjectConfiguration& projectConfig, Pick pick)
    : projectConfig_(projectConfig), pick_(std::move(pick)) {
}

void CSymbolsFeeder::GetSymbols(cldialog::IDataSource& source, std::vector<std::string>& symbols) {
    if (pick_)
        pick_(source, symbols);
}

std::string CSymbolsFeeder::GetCentralLibraryPath() {
    Orv::ICentralLibraryState* state = projectConfig_.centralLibraryState;
    if (!state || !projectConfig_.projectFile || !state->IsAttached())
        return {};
    return projectConfig_.projectFile->GetCentralLibraryPath(1);
}

} // namespace ovsettings
