#pragma once

#include "orv/appconfiguration.h"
#include "orv/projectconfiguration.h"
#include "orv/updater.h"
#include "tests/host/recordingaddin.h"
#include "tests/support/testsupport.h"

#include <QtWidgets/QDialog>
#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

/// Asks for some page names at each commit and writes down which were changed.
class AskingUpdater : public Orv::IUpdater {
public:
    explicit AskingUpdater(std::vector<std::string> names) : names_(std::move(names)) {}
    bool updateSettings(ovsettings::IUpdateHost* host) override;

    std::vector<std::set<std::string>> notifications;

private:
    std::vector<std::string> names_;
};

/// A host with an installation of its own and a loaded configuration.
class HostDialog : public testing::Test {
protected:
    HostDialog();

    /// Writes the catalogue: the text between the document element's tags.
    void catalogue(const std::string& dialogs);
    /// Catalogue text of one category of the recording add-in.
    static std::string category(const std::string& name, const std::string& key,
                                const std::string& inner = "");
    static std::string category(const std::string& name) { return category(name, name); }

    /// Opens the dialog and lets the script work it; returns what the host gets.
    int run(const std::function<void(QDialog&)>& script, Orv::IUpdater* updater = nullptr);

    std::string storedLastPage();

    testsupport::Installation installation_;
    Orv::iAppConfiguration configuration_;
    Orv::CProjectConfiguration project_;
    std::vector<std::string> boxes_; ///< texts of the message boxes that came before the dialog
};

void click(QDialog& dialog, const std::string& button);

/// The tree as text: captions, children in parentheses.
std::string treeText(QDialog& dialog);
/// The caption of the selected item, empty if there is none.
std::string selectedCategory(QDialog& dialog);
/// The caption over the page area.
std::string pageCaption(QDialog& dialog);
/// The texts of the line edits on show in the page area.
std::vector<std::string> textsOnShow(QDialog& dialog);
