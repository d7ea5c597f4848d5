#pragma once

#include "details/pages/project/attributesgrid.h"
#include "details/pages/project/borderrows.h"
#include "details/pages/project/symbolsfeeder.h"
#include "ovsettings/propdialogtemplate.h"

#include <memory>
#include <optional>
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
class CBordersDialog : public CPropDialogTemplateEx {
    Q_OBJECT

public:
    explicit CBordersDialog(QWidget* parent);
    ~CBordersDialog() override;

    void setAppConfiguration(Orv::iAppConfiguration* appConfig) override;
    void setProjectConfiguration(Orv::CProjectConfiguration* projectConfig) override;
    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onOk() override;
    bool onApply() override;
    bool onCancel() override;
    bool onEnter() override;
    bool onLeave() override;
    bool isModified() const override;

private:
    /// The file object of the project; null if it has none.
    Orv::IBorderSymbols* borderSymbols() const;
    void load();
    void chooseSymbol(std::size_t index, BorderSheet sheet);
    void setSymbol(std::size_t index, BorderSheet sheet, const std::string& symbol);
    void dropSymbol(std::size_t index, BorderSheet sheet);
    void addCustom();
    void deleteCustom();
    bool isCustomRow() const;
    void enableDelete();
    void editProperties();
    KnownValues knownValues() const;
    void mergeProperties(const Attributes& edited);
    void giveBackProperties();

    std::unique_ptr<Ui::CBordersDialog> ui_;
    Orv::iAppConfiguration* appConfig_ = nullptr;
    Orv::CProjectConfiguration* projectConfig_ = nullptr;
    CBorderRows rows_;
    bool dirty_ = false;
    /// What the file object held before the properties were edited, until a store.
    std::optional<std::vector<Orv::IBorderSymbols::Property>> propertiesBefore_;
};

} // namespace ovsettings
