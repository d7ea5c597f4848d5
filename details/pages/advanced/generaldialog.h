#pragma once

#include "details/pages/page.h"
#include "details/shell/unreportededits.h"

#include <QtCore/QString>

#include <memory>
#include <vector>

namespace ovsettings {

class CGeneralGrid;
class CGeneralRow;

namespace Ui {
class CGeneralDialog;
}

/// The page "Advanced": a property sheet of the settings that have no page of their own. Its changes are not
/// reported to the host by name, and that is meant: the host reads these settings when it needs them.
class CGeneralDialog : public CPage, public IUnreportedEdits {
    Q_OBJECT

public:
    explicit CGeneralDialog(QWidget* parent);
    ~CGeneralDialog() override;

    void setAppConfiguration(Orv::iAppConfiguration* appConfig) override;
    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onApply() override;
    bool onEnter() override;
    bool onLeave() override;
    bool isValid() override;
    bool hasUnreportedEdits() const override;

private:
    std::vector<QString> texts() const;
    bool validate();
    void storeRow(CGeneralRow& row);

    std::unique_ptr<Ui::CGeneralDialog> ui_;
    /// Null until the page is filled, and a page that is not has nothing to refuse.
    CGeneralGrid* grid_ = nullptr;
    std::vector<QString> kept_; ///< the texts of the rows as they were filled or last stored
};

} // namespace ovsettings
