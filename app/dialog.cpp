// The program without a command: the settings dialog.

#include "app/dialog.h"

#include "app/commands.h"
#include "app/outcome.h"
#include "app/workspace.h"

#include <orv/updater.h>
#include <ovsettings/showsettingsdialog.h>
#include <ovsettings/updatehost.h>

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMessageBox>

#include <array>
#include <iostream>
#include <set>

namespace app {

namespace {

// The names under which pages report changes.
constexpr std::array kPageNames{
    "Pan and Zoom",
    "Nets",
    "Grid",
    "PCB",
    "Design",
    "Advanced",
    "New Object",
    "Color Schemes",
    "Font Mappings",
    "New Sheet",
    "Run on Startup",
    "Global Nets",
    "Special Components",
    "Borders",
    "Symbol Libraries",
    "Display",
    "Objects",
    "Netlist Project",
    "Fixed Functions",
    "Metrics",
    "NetNameDelimiter",
    "PartBook",
    "Empty",
};

// The host's part of a commit.
class CommitFollower : public Orv::IUpdater {
public:
    CommitFollower(Project& project, std::ostream& out) : project_(project), out_(out) {}

    bool updateSettings(ovsettings::IUpdateHost* host) override {
        project_.saveLibraries();
        for (const char* page : kPageNames) {
            if (host->isPageChanged(page))
                out_ << "changed: " << page << std::endl;
        }
        return true;
    }

private:
    Project& project_;
    std::ostream& out_;
};

// A user who looks at a dialog does not see standard error. The same trouble at every page switch is told
// once.
class TroubleBox {
public:
    void operator()(const std::string& message) {
        if (!told_.insert(message).second)
            return;
        QMessageBox box(QMessageBox::Warning, "Settings", QString::fromStdString(message), QMessageBox::Ok,
                        QApplication::activeModalWidget());
        // A path may look like markup.
        box.setTextFormat(Qt::PlainText);
        box.exec();
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

void openDialog(Orv::iAppConfiguration& configuration, Project& project, const Options& options,
                std::ostream& out) {
    // The dialog records the category that it really shows, so a name that it does not have is noticed here.
    QTimer arrival;
    arrival.setSingleShot(true);
    if (options.page) {
        startAtPage(configuration, *options.page);
        QObject::connect(&arrival, &QTimer::timeout, [&configuration, &options] {
            if (shownPage(configuration) != *options.page)
                refuse("there is no category " + *options.page + "; the dialog opens at " +
                       shownPage(configuration));
        });
        arrival.start(0);
    }
    TroubleBox box;
    const ScopedErrorHandler handler([&box](const std::string& message) { box(message); });
    CommitFollower follower(project, out);
    ovsettings::showSettingsDialog(configuration, project.configuration(), options.catalogue, &follower);
    project.saveLibraries(); // a page may have stored its list and the commit gone no further
}

int runDialog(const Options& options, Arguments) {
    if (!hasScreen())
        return refuse("there is no screen to open the dialog on; the command tour works without one");
    setUpEnvironment(options);
    int argumentCount = 1;
    std::string name = "orvane-settings";
    char* arguments[] = {name.data(), nullptr};
    QApplication application(argumentCount, arguments);
    if (QGuiApplication::platformName() == "offscreen")
        QApplication::setStyle("Fusion");

    Orv::iAppConfiguration configuration;
    if (const auto failure = loadConfiguration(configuration))
        return refuse(*failure);
    if (const auto obstacle = obstacleToSaving(configuration))
        return refuse(*obstacle);
    Project project;
    if (const auto failure = project.open(options))
        return refuse(*failure);
    openDialog(configuration, project, options, std::cout);
    return kDone;
}

} // namespace app
