#pragma once

#include "dialog/shell/followsconfiguration.h"
#include "dialog/shell/formpage.h"
#include "dialog/shell/unsavededits.h"
#include "orv/metrics.h"

#include <optional>

namespace ovsettings {

namespace Ui {
class CMetricsDialog;
}

/// The page "Units": the unit in which all pages show lengths. Stored lengths do not depend on it.
class CMetricsDialog : public CFormPage<Ui::CMetricsDialog>,
                       public IUnsavedEdits,
                       public IFollowsConfiguration {
    Q_OBJECT

public:
    explicit CMetricsDialog(QWidget* parent);
    ~CMetricsDialog() override;

    bool OnInitDialog() override;
    bool onApply() override;
    bool onLeave() override;
    bool isModified() const override;
    DroppedEdits followConfiguration() override;
    bool hasUnsavedEdits() const override;

private:
    struct Stored {
        Orv::Metrics::Unit unit;
        bool locked = false;

        bool operator==(const Stored&) const = default;
    };

    Stored read() const;
    void show(const Stored& stored);
    void store(Orv::Metrics::Unit unit);
    std::optional<Orv::Metrics::Unit> selectedUnit() const;

    /// The unit that the host knows of: as read, or as last committed. Nothing before the page is filled.
    std::optional<Orv::Metrics::Unit> told_;
    Stored stored_; ///< as it was read last
};

} // namespace ovsettings
