#pragma once

#include "dialog/shell/formpage.h"

#include <memory>

namespace ovsettings {

namespace Ui {
class CCentralLibraryDialog;
}

/// The page "Central Library": the library of the open project, three of its files and its remote server.
class CCentralLibraryDialog : public CFormPage<Ui::CCentralLibraryDialog> {
    Q_OBJECT

public:
    explicit CCentralLibraryDialog(QWidget* parent);
    ~CCentralLibraryDialog() override;

    bool OnInitDialog() override;
    bool onApply() override;
    bool onEnter() override;
    bool onLeave() override;
    bool isModified() const override;

private:
    struct Fields;

    void followProject();
    bool checkLibraryVersion();

    std::unique_ptr<Fields> fields_; ///< null while no project is open: there is nothing to check and store
};

} // namespace ovsettings
