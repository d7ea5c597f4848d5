#pragma once

#include "dialog/pages/display/colorsgrid.h"
#include "dialog/shell/followsconfiguration.h"
#include "dialog/shell/formpage.h"

#include <memory>

namespace ovsettings {

struct DrawItem;

namespace Ui {
class CColorDialog;
}

/// The two palettes.
std::vector<GridSetting> paletteSettings();

/// The page "Color Schemes": the palette of the schematic editor, what it looks like, and its exchange with
/// scheme files.
///
/// The list of schemes on the page stays empty, whatever files are read. So none is ever selected, the
/// palette keeps what it has, and neither a store nor an export writes anything. Users know the page so.
class CColorDialog : public CFormPage<Ui::CColorDialog>, public IFollowsConfiguration {
    Q_OBJECT

public:
    explicit CColorDialog(QWidget* parent);
    ~CColorDialog() override;

    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onApply() override;
    bool onCancel() override;
    DroppedEdits followConfiguration() override;

private:
    void fillPreviewEntries();
    void addCurrentColors();
    void showForm(ColorForm form);
    ColorForm checkedForm() const;
    void readSchemeFile(const std::string& path);
    void selectScheme();
    void importSchemes();
    void exportScheme();
    Orv::CColorScheme schemeToExport(const std::string& path) const;
    void drawPreview(const DrawItem& item) const;

    std::vector<std::unique_ptr<Orv::CColorScheme>> schemes_;
    const Orv::CColorScheme* selected_ = nullptr; ///< one of schemes_
};

} // namespace ovsettings
