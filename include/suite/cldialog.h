#pragma once

#include "suite/export.h"

#include <string>
#include <vector>

class QWidget;

/// The chooser of symbols over a central library.
namespace cldialog {

/// What the chooser can show: the symbols of the central library, one operation a kind. Each appends symbol
/// names, "PARTITION:NAME" in UTF-8, in the order of the index. The order of the operations is part of the
/// binary contract.
class OVSUITE_API IDataSource {
public:
    virtual void GetPortSymbols(std::vector<std::string>& symbols) = 0;
    virtual void GetOnSheetSymbols(std::vector<std::string>& symbols) = 0;
    virtual void GetOffSheetSymbols(std::vector<std::string>& symbols) = 0;
    virtual void GetRipperBusNetSymbols(std::vector<std::string>& symbols) = 0;
    virtual void GetRipperBusBusSymbols(std::vector<std::string>& symbols) = 0;
    virtual void GetPowerSymbols(std::vector<std::string>& symbols) = 0;
    virtual void GetGroundSymbols(std::vector<std::string>& symbols) = 0;
    virtual void GetBorderSymbols(std::vector<std::string>& symbols) = 0;

protected:
    ~IDataSource() = default;
};

/// Through this the chooser asks what it is to show. The order of the operations is part of the binary
/// contract.
class OVSUITE_API IDialogFeed {
public:
    virtual ~IDialogFeed() = default;
    /// Picks from the source, by appending, the symbols that are offered.
    virtual void GetSymbols(IDataSource& source, std::vector<std::string>& symbols) = 0;
    /// Full path of the index of the central library; empty if there is none.
    virtual std::string GetCentralLibraryPath() = 0;
};

/// Shows the chooser, modal to the active window, and waits for the user.
/// @param feed  must outlive the call.
/// @param title of the window, UTF-8.
/// @return the name of the chosen symbol, "PARTITION:NAME"; empty on cancel.
OVSUITE_API std::string showCentralLibraryDialog(IDialogFeed& feed, const std::string& title);

} // namespace cldialog
