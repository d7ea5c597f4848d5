#include "suite/cldialog.h"

#include "suite/chooser/symbolchooser.h"
#include "suite/libraries/centrallibrary.h"

#include <QtCore/QPointer>
#include <QtWidgets/QApplication>

#include <utility>

namespace cldialog {

namespace {

class LibrarySource : public IDataSource {
public:
    explicit LibrarySource(const suite::CentralLibrary& library) : library_(library) {}
    virtual ~LibrarySource() = default;

    using Symbols = std::vector<std::string>;
    using Kind = suite::SpecialSymbolKind;

    void GetPortSymbols(Symbols& symbols) override { append(Kind::port, symbols); }
    void GetOnSheetSymbols(Symbols& symbols) override { append(Kind::onSheet, symbols); }
    void GetOffSheetSymbols(Symbols& symbols) override { append(Kind::offSheet, symbols); }
    void GetRipperBusNetSymbols(Symbols& symbols) override { append(Kind::ripperBusNet, symbols); }
    void GetRipperBusBusSymbols(Symbols& symbols) override { append(Kind::ripperBusBus, symbols); }
    void GetPowerSymbols(Symbols& symbols) override { append(Kind::power, symbols); }
    void GetGroundSymbols(Symbols& symbols) override { append(Kind::ground, symbols); }
    void GetBorderSymbols(Symbols& symbols) override { append(Kind::border, symbols); }

private:
    void append(Kind kind, Symbols& symbols) const {
        const Symbols& found = library_.specialSymbols(kind);
        symbols.insert(symbols.end(), found.begin(), found.end());
    }

    const suite::CentralLibrary& library_;
};

/// Reads the library. @return why it is not there, for the user.
QString loadLibrary(suite::CentralLibrary& library, const std::string& indexPath) {
    if (indexPath.empty())
        return SymbolChooser::tr("The project has no central library.");
    const auto loaded = library.load(indexPath);
    return loaded ? QString()
                  : SymbolChooser::tr("The central library is not available: %1")
                        .arg(QString::fromStdString(loaded.errorText()));
}

} // namespace

std::string showCentralLibraryDialog(IDialogFeed& feed, const std::string& title) {
    SymbolChooser::Content content;
    content.title = QString::fromStdString(title);
    content.problem = loadLibrary(content.library, feed.GetCentralLibraryPath());
    LibrarySource source(content.library);
    feed.GetSymbols(source, content.suggested);

    QWidget* owner = QApplication::activeWindow();
    if (!owner)
        owner = QApplication::activeModalWidget();
    // The owner takes the dialog along if it is deleted meanwhile.
    const QPointer<SymbolChooser> dialog(new SymbolChooser(std::move(content), owner));
    const bool isChosen = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return {};
    std::string symbol = isChosen ? dialog->selectedSymbol() : std::string();
    delete dialog;
    return symbol;
}

} // namespace cldialog
