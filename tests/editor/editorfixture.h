#pragma once

#include "orv/appconfiguration.h"
#include "ovsettings/propdialogtemplate.h"
#include "tests/support/testsupport.h"

#include <QtWidgets/QWidget>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace ovsettings {
class CDecimalSpinCtrl;
}

/// An entry of a configuration file; a locked one is locked there.
struct Entry {
    std::string key;
    std::string value;
    bool locked = false;
};

/// Pages over a loaded configuration, in a window.
class EditorPages : public testing::Test {
protected:
    /// Loads a configuration whose site level holds these entries.
    void load(const std::vector<Entry>& entries);
    /// The same with values that the store may read as others.
    void loadAsWritten(const std::vector<Entry>& entries);

    /// Opens a page as the settings dialog does.
    template <typename Page>
    Page& open() {
        auto* page = new Page(nullptr);
        page->setAppConfiguration(&appConfig_);
        page->createWindow(&window_);
        page->show();
        page->onEnter();
        return *page;
    }

    std::string stored(const std::string& key) const;
    /// The keys in the order in which an apply writes them.
    std::vector<std::string> keysWrittenBy(ovsettings::CPropDialogTemplate& page);
    std::string siteDirectory() const { return installation_.site().string(); }

    /// Types a text over the one there is.
    static void type(QWidget& control, const std::string& text);

    testsupport::Installation installation_;
    Orv::iAppConfiguration appConfig_;
    QWidget window_;
};
