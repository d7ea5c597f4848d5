#pragma once

#include "ovsettings/propdialogtemplate.h"

#include <memory>

namespace ovsettings {

namespace Ui {
class CCentralLibraryDialog;
}

/// The page "Central Library": the library of the open project, three of its files and its remote server.
class CCentralLibraryDialog : public CPropDialogTemplateEx {
    Q_OBJECT

public:
    explicit CCentralLibraryDialog(QWidget* parent);
    ~CCentralLibraryDialog() override;

    void setProjectConfiguration(Orv::CProjectConfiguration* projectConfig) override;
    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onOk() override;
    bool onApply() override;
    bool onEnter() override;
    bool onLeave() override;

private:
    struct Fields;

    bool checkLibraryVersion();

    std::unique_ptr<Ui::CCentralLibraryDialog> ui_;
    Orv::CProjectConfiguration* projectConfig_ = nullptr;
    std::unique_ptr<Fields> fields_; ///< null while no project is open: there is nothing to check and store
};

} // namespace ovsettings
