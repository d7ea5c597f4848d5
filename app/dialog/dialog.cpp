// The program without a command: the settings dialog.

#include "app/dialog/dialog.h"

#include "app/commands.h"
#include "app/dialog/project.h"
#include "app/outcome.h"
#include "app/workspace.h"
#include "platform/plaintext.h"
#include "platform/printable.h"

#include <orv/projectfiledata.h>
#include <orv/updater.h>
#include <ovsettings/showsettingsdialog.h>
#include <ovsettings/updatehost.h>

#include <QtCore/QFile>
#include <QtCore/QXmlStreamReader>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMessageBox>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <set>
#include <vector>

namespace app {

namespace {

bool equalsWithoutCase(const std::string& one, const std::string& other) {
    return QString::compare(QString::fromStdString(one), QString::fromStdString(other),
                            Qt::CaseInsensitive) == 0;
}

// The names under which pages report changes: the product's own, the designs', and what the catalogue names,
// for a page of an add-in is expected to report under the key or the name of its category.
std::vector<std::string> pageNames(const std::string& catalogue, Orv::CProjectConfiguration& project) {
    std::vector<std::string> names;
    if (project.projectFile)
        project.projectFile->GetDesignNames(names);
    for (const ovsettings::PageReport& page : ovsettings::kPageReports) {
        if (page.reports)
            names.emplace_back(page.name);
    }
    QFile file(QString::fromStdString(installation() + "/standard/" + catalogue));
    if (!file.open(QIODevice::ReadOnly))
        return names;
    QXmlStreamReader reader(&file);
    while (!reader.atEnd()) {
        const bool isName = reader.readNextStartElement() && (reader.name() == QLatin1String("name") ||
                                                              reader.name() == QLatin1String("classid"));
        const std::string name =
            isName ? reader.readElementText(QXmlStreamReader::SkipChildElements).trimmed().toStdString()
                   : std::string();
        if (!name.empty() &&
            std::ranges::none_of(names, [&](const auto& known) { return equalsWithoutCase(known, name); }))
            names.push_back(name);
    }
    return names;
}

// The host's part of a commit.
class CommitFollower : public Orv::IUpdater {
public:
    CommitFollower(Project& project, std::vector<std::string> pages, std::ostream& out)
        : project_(project), pages_(std::move(pages)), out_(out) {}

    bool updateSettings(ovsettings::IUpdateHost* host) override {
        project_.saveLibraries();
        for (const std::string& page : pages_) {
            if (host->isPageChanged(page))
                out_ << "changed: " << platform::printable(page) << std::endl;
        }
        return true;
    }

private:
    Project& project_;
    std::vector<std::string> pages_;
    std::ostream& out_;
};

// A user who looks at a dialog does not see standard error. The same trouble at every page switch is told
// once.
class TroubleBox {
public:
    void operator()(const std::string& message) {
        if (!told_.insert(message).second)
            return;
        QMessageBox box(QMessageBox::Warning, "Settings",
                        platform::inItsOrder(QString::fromStdString(message)), QMessageBox::Ok,
                        QApplication::activeModalWidget());
        // A path may look like markup.
        box.setTextFormat(Qt::PlainText);
        // While the user is asked, nobody is to wait.
        const bool isWaiting = QGuiApplication::overrideCursor() != nullptr;
        if (isWaiting)
            QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
        box.exec();
        if (isWaiting)
            QGuiApplication::restoreOverrideCursor();
    }

private:
    std::set<std::string> told_;
};

std::string shownPage(const Orv::iAppConfiguration& configuration) {
    Orv::iAppConfiguration::Property property("MRU_SETTINGS");
    configuration.getProperty(property);
    return property.values.empty() ? std::string() : property.values.front();
}

bool hasScreen() {
    return !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") || !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

} // namespace

void startAtPage(Orv::iAppConfiguration& configuration, const std::string& page) {
    Orv::iAppConfiguration::Property property("MRU_SETTINGS");
    property.values = {page};
    configuration.setProperty(property);
}

StartPage::StartPage(Orv::iAppConfiguration& configuration, const Options& options) {
    if (!options.page)
        return;
    startAtPage(configuration, *options.page);
    // The dialog records the category that it really shows, so a name that it does not have is noticed here.
    arrival_.setSingleShot(true);
    QObject::connect(&arrival_, &QTimer::timeout, [&configuration, page = *options.page] {
        const std::string shown = shownPage(configuration);
        if (shown != page)
            refuse("there is no category " + page + "; the dialog opens at " + shown);
    });
    arrival_.start(0);
}

void openDialog(Orv::iAppConfiguration& configuration, Project& project, const Options& options,
                std::ostream& out) {
    TroubleBox box;
    const ScopedErrorHandler handler([&box](const std::string& message) { box(message); });
    for (const std::string& line : missingDirectories(configuration))
        box(line);
    const StartPage start(configuration, options); // behind the boxes: it waits for the dialog
    CommitFollower follower(project, pageNames(options.catalogue, project.configuration()), out);
    ovsettings::showSettingsDialog(configuration, project.configuration(), options.catalogue, &follower);
    project.saveLibraries(); // a page may have stored its list and the commit gone no further
}

int runDialog(const Options& options, Arguments) {
    if (!hasScreen())
        return refuse("there is no screen to open the dialog on; the command tour works without one");
    if (const auto ready = setUpEnvironment(options); !ready)
        return refuse(ready.errorText());
    int argumentCount = 1;
    std::string name = "orvane-settings";
    char* arguments[] = {name.data(), nullptr};
    QApplication application(argumentCount, arguments);
    if (QGuiApplication::platformName() == "offscreen")
        QApplication::setStyle("Fusion");

    Orv::iAppConfiguration configuration;
    if (const auto loaded = loadConfiguration(configuration); !loaded)
        return refuse(loaded.errorText());
    if (const auto ready = prepareToSave(configuration); !ready)
        return refuse(ready.errorText());
    tellMissingDirectories(configuration);
    Project project;
    if (const auto opened = project.open(options); !opened)
        return refuse(opened.errorText());
    openDialog(configuration, project, options, std::cout);
    return kDone;
}

} // namespace app
