#pragma once

#include "dialog/shell/followsconfiguration.h"
#include "dialog/shell/formpage.h"
#include "dialog/shell/unsavededits.h"

#include <QtCore/QString>

#include <optional>
#include <string>
#include <vector>

namespace ovsettings {

class CGeneralGrid;
class CGeneralRow;

namespace Ui {
class CGeneralDialog;
}

/// The page "Advanced": a property sheet of the settings that have no page of their own. Its changes are not
/// reported to the host by name, since hosts read these settings when they need them.
class CGeneralDialog : public CFormPage<Ui::CGeneralDialog>,
                       public IUnsavedEdits,
                       public IFollowsConfiguration {
    Q_OBJECT

public:
    explicit CGeneralDialog(QWidget* parent);
    ~CGeneralDialog() override;

    void setAppConfiguration(Orv::iAppConfiguration* appConfig) override;
    bool OnInitDialog() override;
    bool onApply() override;
    bool onEnter() override;
    bool onLeave() override;
    bool isValid() override;
    bool hasUnsavedEdits() const override;
    DroppedEdits followConfiguration() override;

private:
    /// What the keys of a row hold, and the first one that is locked.
    struct Stored {
        std::vector<std::string> texts;
        std::optional<std::string> lockedKey;

        bool operator==(const Stored&) const = default;
    };
    /// A row as it was filled, last stored or followed.
    struct KeptRow {
        QString value; ///< what it stands for while the user changes nothing
        Stored stored;
    };

    Stored read(const CGeneralRow& row) const;
    std::vector<QString> values() const;
    void keep();
    bool validate();
    void storeRow(CGeneralRow& row);
    void showAnew(CGeneralRow& row) const;
    QString storedValue(const CGeneralRow& row) const;

    /// Null until the page is filled. Until then no check refuses anything.
    CGeneralGrid* grid_ = nullptr;
    std::vector<KeptRow> kept_;
};

} // namespace ovsettings
