#include "dialog/pages/designs/netlisttopleveldialog.h"
#include "dialog/pages/designs/toplevelsettingsdialog.h"
#include "ovsettings/topleveldialogprovider.h"

namespace toplevelsettings {

namespace {

template <typename Page>
class Provider final : public ovsettings::ITopLevelDialogProvider {
public:
    ovsettings::CPropDialogTemplate* createDialog(QWidget* parent, const std::string& designName) override {
        return new Page(parent, designName);
    }
};

using CTopLevelSettingsProvider = Provider<ovsettings::CTopLevelSettingsDialog>;
using CNetlistTopLevelDialogProvider = Provider<ovsettings::CNetlistTopLevelDialog>;

CTopLevelSettingsProvider theTopLevelSettingsProvider;
CNetlistTopLevelDialogProvider theNetlistTopLevelProvider;

} // namespace

ovsettings::ITopLevelDialogProvider* getTopLevelSettingsProvider() {
    return &theTopLevelSettingsProvider;
}

ovsettings::ITopLevelDialogProvider* getNetlistTopLevelProvider() {
    return &theNetlistTopLevelProvider;
}

} // namespace toplevelsettings
