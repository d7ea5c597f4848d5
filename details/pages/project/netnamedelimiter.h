#pragma once

#include "ovsettings/propdialogtemplate.h"

#include <cstddef>
#include <memory>

class QRadioButton;

namespace ovsettings {

namespace Ui {
class CNetNameDelimiter;
}

/// The page "Net Name Delimiter": what stands around the index in the names of the project's nets.
class CNetNameDelimiter : public CPropDialogTemplateEx {
    Q_OBJECT

public:
    explicit CNetNameDelimiter(QWidget* parent);
    ~CNetNameDelimiter() override;

    /// @param projectConfig may be null: the page then reads and writes nothing.
    void setProjectConfiguration(Orv::CProjectConfiguration* projectConfig) override;
    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onOk() override;
    bool onApply() override;

private:
    void readButtons();

    std::unique_ptr<Ui::CNetNameDelimiter> ui_;
    Orv::CProjectConfiguration* projectConfig_ = nullptr;
    std::size_t chosen_ = 0;
    std::size_t loaded_ = 0;
};

} // namespace ovsettings
