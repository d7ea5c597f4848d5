#include "dialog/pages/project/netnamedelimiter.h"

#include "dialog/shell/internalpages.h"
#include "dialog/shell/projectaccess.h"
#include "dialog/widgets/radiobutton.h"
#include "orv/projectconfiguration.h"
#include "orv/projectfiledata.h"
#include "ui_netnamedelimiter.h"

#include <algorithm>
#include <array>
#include <string>

namespace ovsettings {

namespace {

struct Delimiter {
    QRadioButton* Ui::CNetNameDelimiter::*button;
    const char* stored;
};

constexpr std::array kDelimiters{
    Delimiter{&Ui::CNetNameDelimiter::none, ""},
    Delimiter{&Ui::CNetNameDelimiter::roundBrackets, "()"},
    Delimiter{&Ui::CNetNameDelimiter::squareBrackets, "[]"},
};

/// The choice that stands for a text of the project. For one that is none of the three, the first is shown.
std::size_t choiceFor(const std::string& stored) {
    const auto found = std::ranges::find(kDelimiters, stored, &Delimiter::stored);
    return found == kDelimiters.end() ? 0 : static_cast<std::size_t>(found - kDelimiters.begin());
}

} // namespace

CNetNameDelimiter::CNetNameDelimiter(QWidget* parent) : CFormPage(parent, internalPage("NetNameDelimiter")) {
}

CNetNameDelimiter::~CNetNameDelimiter() = default;

bool CNetNameDelimiter::OnInitDialog() {
    if (projectConfig_ && projectConfig_->projectFile)
        chosen_ = loaded_ = stored_ = choiceFor(projectConfig_->projectFile->GetNetNameDelimiter());
    checkRadioButton(*(ui_.get()->*kDelimiters[chosen_].button));
    for (const Delimiter& delimiter : kDelimiters)
        connect(ui_.get()->*delimiter.button, &QRadioButton::toggled, this, &CNetNameDelimiter::readButtons);
    return true;
}

/// Compared with what was loaded, also after an Apply has stored something else. So the way back to the
/// loaded one is not stored by a second Apply: users know the page so.
bool CNetNameDelimiter::onApply() {
    if (chosen_ != loaded_ && projectConfig_ && projectConfig_->projectFile) {
        projectConfig_->projectFile->SetNetNameDelimiter(kDelimiters[chosen_].stored);
        stored_ = choiceFor(projectConfig_->projectFile->GetNetNameDelimiter());
    }
    return true;
}

bool CNetNameDelimiter::isModified() const {
    return hasProject(projectConfig_) && chosen_ != stored_;
}

void CNetNameDelimiter::readButtons() {
    for (std::size_t index = 0; index < kDelimiters.size(); ++index) {
        if ((ui_.get()->*kDelimiters[index].button)->isChecked())
            chosen_ = index;
    }
}

} // namespace ovsettings
