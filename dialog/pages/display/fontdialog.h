#pragma once

#include "dialog/shell/followsconfiguration.h"
#include "dialog/shell/formpage.h"

#include <string>

namespace ovsettings {

namespace Ui {
class CFontDialog;
}

/// The page "Font Mappings": the screen font that stands for each stroke font of the schematic editor, and a
/// factor for the size of all of them.
class CFontDialog : public CFormPage<Ui::CFontDialog>, public IFollowsConfiguration {
    Q_OBJECT

public:
    explicit CFontDialog(QWidget* parent);
    ~CFontDialog() override;

    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onApply() override;
    bool isModified() const override;
    DroppedEdits followConfiguration() override;

    /// Lets the user choose a screen font for the grid's current row; without one it does nothing.
    virtual void editMapping();
    /// Takes the screen font from the grid's current row.
    virtual void removeMapping();

private:
    void followRow();
    void showFactor();
    void followFactor(DroppedEdits& dropped);
    std::string typedFactor() const;

    std::string factor_; ///< as it is stored
    bool isFactorLocked_ = false;
};

} // namespace ovsettings
