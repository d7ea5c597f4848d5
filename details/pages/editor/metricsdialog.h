#pragma once

#include "details/pages/page.h"
#include "orv/metrics.h"

#include <memory>
#include <optional>

namespace ovsettings {

namespace Ui {
class CMetricsDialog;
}

/// The page "Units": the unit in which all pages show lengths. Stored lengths do not depend on it.
class CMetricsDialog : public CPage {
    Q_OBJECT

public:
    explicit CMetricsDialog(QWidget* parent);
    ~CMetricsDialog() override;

    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onApply() override;
    bool onLeave() override;
    bool isModified() const override;

private:
    std::optional<Orv::Metrics::Unit> selectedUnit() const;

    std::unique_ptr<Ui::CMetricsDialog> ui_;
    /// The unit that the host knows of: as read, or as last committed. Nothing before the page is filled.
    std::optional<Orv::Metrics::Unit> told_;
};

} // namespace ovsettings
