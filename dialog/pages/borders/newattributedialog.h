#pragma once

#include <QtWidgets/QDialog>

#include <memory>
#include <string>

namespace ovsettings {

namespace Ui {
class CNewAttributeDialog;
}

/// The modal dialog "New Property", which asks for one pair of name and value.
class CNewAttributeDialog : public QDialog {
    Q_OBJECT

public:
    explicit CNewAttributeDialog(QWidget* parent = nullptr);
    ~CNewAttributeDialog() override;

    /// Runs the dialog. @return QDialog::Accepted after OK; then the name holds.
    int DoModal();

    std::string attributeName() const;

private:
    std::unique_ptr<Ui::CNewAttributeDialog> ui_;
};

} // namespace ovsettings
