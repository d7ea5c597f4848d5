#pragma once

#include "orv/metrics.h"

#include <QtWidgets/QDialog>

#include <memory>
#include <optional>

namespace ovsettings {

class CDecimalSpinCtrl;

namespace Ui {
class CCustomBorderDialog;
}

/// The modal dialog "New Size", which asks for the two sides of a sheet.
class CCustomBorderDialog : public QDialog {
    Q_OBJECT

public:
    /// @param unit of both lengths.
    explicit CCustomBorderDialog(Orv::Metrics::Unit unit, QWidget* parent = nullptr);
    ~CCustomBorderDialog() override;

    /// Runs the dialog. @return QDialog::Accepted after OK; then the lengths hold.
    int DoModal();

    double width() const { return width_; }
    double height() const { return height_; }

    void accept() override;

private:
    std::optional<double> lengthIn(CDecimalSpinCtrl& field, const QString& refusal);

    std::unique_ptr<Ui::CCustomBorderDialog> ui_;
    double width_ = 0;
    double height_ = 0;
};

} // namespace ovsettings
