#pragma once

#include "dialog/pages/borders/attributes.h"

#include <QtWidgets/QDialog>

#include <memory>

namespace ovsettings {

namespace Ui {
class CAttributeDialog;
}

/// The modal dialog "Border Properties": a list of properties, to which those on offer can be added.
class CAttributeDialog : public QDialog {
    Q_OBJECT

public:
    explicit CAttributeDialog(QWidget* parent = nullptr);
    ~CAttributeDialog() override;

    // Set before DoModal.
    /// What the user reads above the list.
    void setText(const QString& text);
    void setAttributes(Attributes attributes) { attributes_ = std::move(attributes); }
    void setKnownValues(KnownValues known) { known_ = std::move(known); }
    void setNames(std::vector<std::string> names) { names_ = std::move(names); }

    /// Runs the dialog. @return QDialog::Accepted after OK; then the list is the edited one.
    int DoModal();

    const Attributes& attributes() const { return attributes_; }

    void accept() override;

private:
    void addAttribute();

    std::unique_ptr<Ui::CAttributeDialog> ui_;
    Attributes attributes_;
    KnownValues known_;
    std::vector<std::string> names_;
};

} // namespace ovsettings
