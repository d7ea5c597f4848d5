#pragma once

#include "orv/appconfiguration.h"
#include "ovsettings/propdialogtemplate.h"
#include "ovsettings/propertypagefactory.h"
#include "suite/openproject.h"
#include "tests/support/projecterrors.h"
#include "tests/support/widgets.h"

#include <QtWidgets/QWidget>

#include <memory>

using testsupport::boxDuring;
using testsupport::SeenBox;

/// What a page asks before it is left with changes.
extern const SeenBox kSaveQuestion;

/// A project on disk, opened as a host does, and its pages, made by the dialog's own factory.
class ProjectPages : public testing::Test {
protected:
    ProjectPages();

    /// The project's directory; it exists from the start, the project file after openProject.
    std::filesystem::path directory() const { return directory_.path(); }
    std::filesystem::path projectPath() const { return directory_ / "demo.prj"; }

    /// Writes the project file and opens it.
    /// @param text the whole file, of ini kind.
    void openProject(const std::string& text = "[DesignInfo]\n");
    Orv::CProjectConfiguration& project() { return project_->configuration(); }

    /// Opens a page as the settings dialog does: made, filled, shown and entered.
    ovsettings::CPropDialogTemplate& openPage(const std::string& key);
    template <typename Page>
    Page& openPage(const std::string& key) {
        return dynamic_cast<Page&>(openPage(key));
    }
    /// Deletes the page that is open.
    void closePage();

    /// The project file as it is on disk now.
    std::unique_ptr<NProjectTools::CProjectFile> onDisk() const;
    /// A value of its section "DesignInfo".
    std::string stored(const std::string& key) const;
    /// The file's keys, in the order of its lines.
    std::vector<std::string> keysInFile() const;

    template <typename Control>
    Control& control(const std::string& caption) {
        return *testsupport::find<Control>(window_, caption);
    }
    /// Types a text over the one there is. A long one is pasted.
    void type(const std::string& caption, const std::string& text);
    std::string shown(const std::string& caption);

    testsupport::Installation installation_;
    testsupport::TemporaryDirectory directory_;
    std::unique_ptr<NProjectTools::COpenProject> project_;
    Orv::iAppConfiguration appConfig_;
    ovsettings::CFactoryEx factory_;
    QWidget window_;
    ovsettings::CPropDialogTemplate* page_ = nullptr;
};
