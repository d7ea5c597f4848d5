#pragma once

#include "dialog/pages/borders/bordersmodel.h"
#include "dialog/projectfile/foreignfile.h"
#include "dialog/projectfile/namedfile.h"
#include "dialog/projectfile/symbolsfeeder.h"
#include "dialog/shell/formpage.h"

#include <optional>
#include <string>
#include <vector>

namespace ovsettings {

namespace Ui {
class CBordersDialog;
}

/// Offers the border symbols of the project's central library.
class CBorderSymbolsFeeder : public CSymbolsFeeder {
public:
    /// @param projectConfig must outlive the feeder.
    explicit CBorderSymbolsFeeder(Orv::CProjectConfiguration& projectConfig);
};

/// The page "Borders": the border symbols of each sheet size, and the values of their properties, in the
/// project's border symbols file.
class CBordersDialog : public CFormPage<Ui::CBordersDialog> {
    Q_OBJECT

public:
    explicit CBordersDialog(QWidget* parent);
    ~CBordersDialog() override;

    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onApply() override;
    bool onEnter() override;
    bool onLeave() override;
    bool isModified() const override;

private:
    /// The file object of the project; null if it has none.
    Orv::IBorderSymbols* borderSymbols() const;
    std::string storedPath() const;
    bool hasFile() const;
    void load();
    void followFile();
    void enableControls();
    void chooseSymbol(std::size_t index, BorderSheet sheet);
    void showRows(const std::vector<std::size_t>& indices);
    void addCustom();
    void deleteCustom();
    bool isCustomRow() const;
    void enableDelete();
    void editProperties();
    /// What the symbols say of their properties; nothing if the user has stopped the reading.
    std::optional<KnownValues> knownValues();

    NamedFile file_;
    ForeignFile foreign_;
    BordersModel model_;
};

} // namespace ovsettings
