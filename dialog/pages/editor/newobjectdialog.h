#pragma once

#include "dialog/shell/followsconfiguration.h"
#include "dialog/shell/page.h"
#include "dialog/widgets/bindings.h"

#include <memory>

namespace ovsettings {

namespace Ui {
class CNewObjectDialog;
}

/// The page "New Objects": origin and size of a text that the schematic editor places.
class CNewObjectDialog : public Page, public IFollowsConfiguration {
    Q_OBJECT

public:
    explicit CNewObjectDialog(QWidget* parent);
    ~CNewObjectDialog() override;

    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onApply() override;
    bool onEnter() override;
    bool onLeave() override;
    bool isValid() override;
    bool isModified() const override;
    DroppedEdits followConfiguration() override;

private:
    bool checkSize();

    std::unique_ptr<Ui::CNewObjectDialog> ui_;
    Bindings bindings_;
    /// One of the bindings; null until the page is filled. Until then no check refuses anything.
    LengthBinding* size_ = nullptr;
};

} // namespace ovsettings
