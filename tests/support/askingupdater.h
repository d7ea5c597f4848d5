#pragma once

#include "orv/updater.h"
#include "ovsettings/updatehost.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

/// Asks for some page names at each commit and writes down which were changed.
class AskingUpdater : public Orv::IUpdater {
public:
    explicit AskingUpdater(std::vector<std::string> names = {}) : names_(std::move(names)) {}
    bool updateSettings(ovsettings::IUpdateHost* host) override {
        std::set<std::string>& changed = notifications.emplace_back();
        for (const std::string& name : names_) {
            if (host->isPageChanged(name))
                changed.insert(name);
        }
        return true;
    }

    std::vector<std::set<std::string>> notifications;

private:
    std::vector<std::string> names_;
};
