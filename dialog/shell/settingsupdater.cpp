#include "dialog/shell/settingsupdater.h"

#include "dialog/widgets/stringconversion.h"
#include "orv/updater.h"

#include <algorithm>

namespace ovsettings {

namespace {

std::string upperCase(const std::string& text) {
    return toUtf8(toQString(text).toUpper());
}

} // namespace

CSettingsUpdater::~CSettingsUpdater() = default;

void CSettingsUpdater::addUpdater(Orv::IUpdater* updater) {
    if (updater && std::find(updaters_.begin(), updaters_.end(), updater) == updaters_.end())
        updaters_.push_back(updater);
}

void CSettingsUpdater::notify() {
    for (Orv::IUpdater* updater : updaters_)
        updater->updateSettings(this);
}

void CSettingsUpdater::clear() {
    changed_.clear();
}

void CSettingsUpdater::addPage(const std::string& pageName) {
    changed_.insert(upperCase(pageName));
}

bool CSettingsUpdater::isPageChanged(const std::string& pageName) const {
    return changed_.contains(upperCase(pageName));
}

} // namespace ovsettings
