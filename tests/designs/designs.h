#pragma once

#include "orv/appconfiguration.h"
#include "orv/projectconfiguration.h"
#include "suite/openproject.h"
#include "suite/projectfile.h"
#include "tests/support/askingupdater.h"
#include "tests/support/widgets.h"

#include <memory>

using testsupport::press;
using testsupport::textsOf;

/// Runs SQL on a database file, which is made if it is missing.
void runSql(const std::filesystem::path& file, const std::string& sql);
/// The statements that make a design database with these blocks in its snapshot "Orv".
std::string databaseSql(const std::vector<std::string>& blocks);

/// A project with two designs, "main" and "power", a central library and a design database, and the settings
/// dialog on it, with a catalogue that has the branch of designs alone.
class Designs : public testing::Test {
protected:
    Designs();

    /// Replaces the lines of a section of the project file.
    /// @param main the keys of the design "main".
    void openProject(const std::string& main = "");
    void writeLibrary(const std::string& schemes);
    std::filesystem::path database() const { return directory_ / "demo.kds"; }

    /// Opens the dialog, selects the category of a design, and lets the script work it.
    int run(const std::function<void(QDialog&)>& script, const std::string& design = "main");
    std::vector<std::string> captions(QDialog& dialog);
    /// The project file as it is on disk now.
    NProjectTools::CProjectFileUtilitiesLight onDisk() const;

    testsupport::Installation installation_;
    testsupport::TemporaryDirectory directory_;
    std::unique_ptr<NProjectTools::COpenProject> project_;
    Orv::iAppConfiguration configuration_;
    AskingUpdater updater_{{"MAIN", "power"}};
    std::vector<std::string> boxes_;
};

QComboBox& combo(QDialog& dialog, const std::string& caption);
/// Chooses an entry as the user does, with the keyboard.
void choose(QDialog& dialog, const std::string& caption, const std::string& entry);
QListWidget& list(QDialog& dialog, const std::string& title);
std::vector<std::string> lines(QDialog& dialog, const std::string& title);
