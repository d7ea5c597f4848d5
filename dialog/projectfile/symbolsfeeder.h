#pragma once

#include "suite/cldialog.h"

#include <functional>
#include <string>
#include <vector>

namespace Orv {
struct CProjectConfiguration;
}

namespace ovsettings {

/// Tells the chooser of symbols what a page of the project wants to have shown: the symbols that a callback
/// picks, from the project's central library.
class CSymbolsFeeder : public cldialog::IDialogFeed {
public:
    /// Appends, from the source, the symbols that are offered.
    using Pick = std::function<void(cldialog::IDataSource& source, std::vector<std::string>& symbols)>;

    /// @param projectConfig must outlive the feeder.
    CSymbolsFeeder(Orv::CProjectConfiguration& projectConfig, Pick pick);

    void GetSymbols(cldialog::IDataSource& source, std::vector<std::string>& symbols) override;
    std::string GetCentralLibraryPath() override;

private:
    Orv::CProjectConfiguration& projectConfig_;
    Pick pick_;
};

} // namespace ovsettings
