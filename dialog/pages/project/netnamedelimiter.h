#pragma once

#include "dialog/shell/formpage.h"

#include <cstddef>

class QRadioButton;

namespace ovsettings {

namespace Ui {
class CNetNameDelimiter;
}

/// The page "Net Name Delimiter": what stands around the index in the names of the project's nets.
class CNetNameDelimiter : public CFormPage<Ui::CNetNameDelimiter> {
    Q_OBJECT

public:
    explicit CNetNameDelimiter(QWidget* parent);
    ~CNetNameDelimiter() override;

    bool OnInitDialog() override;
    bool onApply() override;
    bool isModified() const override;

private:
    void readButtons();

    std::size_t chosen_ = 0;
    std::size_t loaded_ = 0;
    std::size_t stored_ = 0; ///< what the project had after the last write, or else when it was loaded
};

} // namespace ovsettings
