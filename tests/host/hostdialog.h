#pragma once

#include "orv/appconfiguration.h"
#include "orv/projectconfiguration.h"
#include "tests/host/recordingaddin.h"
#include "tests/support/askingupdater.h"
#include "tests/support/widgets.h"

using testsupport::press;

/// A host with an installation of its own and a loaded configuration.
class HostDialog : public testing::Test {
protected:
    HostDialog();

    /// Writes the catalogue: the text between the document element's tags.
    void catalogue(const std::string& dialogs) { installation_.writeCatalogue(dialogs); }
    /// Catalogue text of one category of the recording add-in.
    static std::string category(const std::string& name, const std::string& key,
                                const std::string& inner = "");
    static std::string category(const std::string& name) { return category(name, name); }
    /// The same of a page of another add-in, named as its key.
    static std::string entry(const std::string& key, const std::string& localization) {
        return testsupport::Installation::category(key, key, localization);
    }

    /// Opens the dialog and lets the script work it; returns what the host gets.
    int run(Orv::IUpdater* updater, const std::function<void(QDialog&)>& script);
    int run(const std::function<void(QDialog&)>& script) { return run(nullptr, script); }

    /// The first value of a key as a program finds it that loads the configuration now.
    static std::string stored(const char* key);
    static std::string storedLastPage() { return stored("MRU_SETTINGS"); }

    testsupport::Installation installation_;
    Orv::iAppConfiguration configuration_;
    Orv::CProjectConfiguration project_;
    std::vector<std::string> boxes_; ///< texts of the message boxes that came before the dialog
};

/// The tree as text: captions, children in parentheses.
std::string treeText(QDialog& dialog);
/// The caption of the selected item, empty if there is none.
std::string selectedCategory(QDialog& dialog);
/// The caption over the page area.
std::string pageCaption(QDialog& dialog);
/// The texts of the line edits on show in the page area.
std::vector<std::string> textsOnShow(QDialog& dialog);
