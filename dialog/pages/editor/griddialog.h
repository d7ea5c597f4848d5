#pragma once

#include "dialog/shell/followsconfiguration.h"
#include "dialog/shell/page.h"
#include "dialog/widgets/bindings.h"

#include <memory>

namespace ovsettings {

namespace Ui {
class CGridDialog;
}

/// The page "Grid": whether the schematic shows its grid, and how wide the grid is.
class CGridDialog : public Page, public IFollowsConfiguration {
    Q_OBJECT

public:
    explicit CGridDialog(QWidget* parent);
    ~CGridDialog() override;

    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onApply() override;
    bool onEnter() override;
    bool onLeave() override;
    bool isValid() override;
    bool isModified() const override;
    DroppedEdits followConfiguration() override;

private:
    bool checkSpacing();

    std::unique_ptr<Ui::CGridDialog> ui_;
    Bindings bindings_;
    /// One of the bindings; null until the page is filled. Until then no check refuses anything.
    LengthBinding* spacing_ = nullptr;
};

} // namespace ovsettings
