#pragma once

#include "app/commands.h"

#include <QtCore/QTimer>

#include <iosfwd>

namespace Orv {
class iAppConfiguration;
}

namespace app {

class Project;

/// The commands that show or make a page.
int runDialog(const Options& options, Arguments arguments);
int runTour(const Options& options, Arguments arguments);

/// Opens the settings dialog on a loaded configuration and a project. Needs a QApplication.
/// @param out receives a line "changed: NAME" for each changed page, at each commit.
void openDialog(Orv::iAppConfiguration& configuration, Project& project, const Options& options,
                std::ostream& out);

/// Makes the category of that name the first to be shown. Nothing is saved.
void startAtPage(Orv::iAppConfiguration& configuration, const std::string& page);

/// As startAtPage, for the category that the options name, if they name one; tells, once the dialog is up, if
/// there is none of that name.
class StartPage {
public:
    StartPage(Orv::iAppConfiguration& configuration, const Options& options);

private:
    QTimer arrival_;
};

} // namespace app
