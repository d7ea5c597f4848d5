#pragma once

#include "dialog/pages/editor/newsheetmodel.h"
#include "dialog/shell/formpage.h"

#include <vector>

class QLineEdit;

namespace ovsettings {

namespace Ui {
class CNewSheetDialog;
}

/// The page "New Sheets": size and orientation of a new schematic sheet, and how it gets its border.
class CNewSheetDialog : public CFormPage<Ui::CNewSheetDialog>, public IFollowsConfiguration {
    Q_OBJECT

public:
    explicit CNewSheetDialog(QWidget* parent);
    ~CNewSheetDialog() override;

    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onApply() override;
    bool onEnter() override;
    bool onLeave() override;
    bool isValid() override;
    bool isModified() const override;
    DroppedEdits followConfiguration() override;

private:
    /// True once there is a configuration whose values are shown.
    bool isFilled() const { return appConfig_ && model_.isLoaded(); }
    DroppedEdits refill();
    std::vector<QWidget*> controlsOf(NewSheetModel::Part part) const;
    void showAll();
    void showUnit();
    void showSizes();
    void showSelection();
    void showSides();
    void showFlags();
    void showLocks();
    void updateFirstBorder();
    void sizeSelected(int index);
    void sideTyped(NewSheetModel::Side side);
    void orientationChosen(NewSheetModel::Orientation orientation);
    bool checkSides();
    bool checkSide(QLineEdit& edit, const QString& message);

    NewSheetModel model_;
    bool updating_ = false; ///< the page itself changes its controls
};

} // namespace ovsettings
