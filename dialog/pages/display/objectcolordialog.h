#pragma once

#include "dialog/shell/followsconfiguration.h"
#include "dialog/shell/formpage.h"
#include "dialog/shell/unsavededits.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace ovsettings {

class CMappingGrid;
class IPreview;

namespace Ui {
class CObjectColorDialog;
}

/// The settings of the rows of both grids.
std::vector<GridSetting> objectSettings();

/// The page "Objects": how each kind of object of a schematic, and of an interconnectivity table (ICT), is
/// drawn, with a sample of each; and the files of colour schemes.
class CObjectColorDialog : public CFormPage<Ui::CObjectColorDialog>,
                           public IUnsavedEdits,
                           public IFollowsConfiguration {
    Q_OBJECT

public:
    explicit CObjectColorDialog(QWidget* parent);
    ~CObjectColorDialog() override;

    bool PreTranslateMessage(QKeyEvent* event) override;
    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onApply() override;
    bool onLeave() override;
    bool isValid() override;
    bool isModified() const override;
    DroppedEdits followConfiguration() override;
    bool hasUnsavedEdits() const override;

private:
    /// The grid of a mode, "OV" or "ICT"; null if there is none.
    CMappingGrid* grid(std::string_view mode) const;
    void registerGrid(const std::string& mode, CMappingGrid& grid);
    void changeMode();
    bool validate();
    void showGrid(CMappingGrid& shown);
    void storeGrids();
    /// As Load Scheme and Save Scheme do first. @return false, with nothing stored, if an edit in progress is
    /// refused.
    bool storeForScheme();
    void loadScheme();
    void saveScheme();

    // The two know the mode of schematics by different words: grids by "OV", previews by "ORV".
    std::map<std::string, CMappingGrid*, std::less<>> grids_;
    std::map<std::string, std::unique_ptr<IPreview>, std::less<>> previews_;
    /// The grid that was registered or selected last.
    CMappingGrid* currentGrid_ = nullptr;
    IPreview* currentPreview_ = nullptr;
};

} // namespace ovsettings
