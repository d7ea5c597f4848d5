#pragma once

#include "dialog/shell/followsconfiguration.h"
#include "dialog/shell/page.h"
#include "dialog/widgets/bindings.h"

#include <memory>

namespace ovsettings {

namespace Ui {
class CNetsDialog;
}

/// The page "Nets": how nets are routed, and where attributes and labels go when a net is split.
class CNetsDialog : public Page, public IFollowsConfiguration {
    Q_OBJECT

public:
    explicit CNetsDialog(QWidget* parent);
    ~CNetsDialog() override;

    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onApply() override;
    bool onEnter() override;
    bool onLeave() override;
    bool isValid() override;
    bool isModified() const override;
    DroppedEdits followConfiguration() override;

private:
    bool checkDistance();

    std::unique_ptr<Ui::CNetsDialog> ui_;
    Bindings bindings_;
    /// One of the bindings; null until the page is filled. Until then no check refuses anything.
    LengthBinding* distance_ = nullptr;
};

} // namespace ovsettings
