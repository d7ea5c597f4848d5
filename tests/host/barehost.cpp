// A host without an application object: the library makes one for the call, and leaves the process as it was.

#include "orv/appconfiguration.h"
#include "orv/projectconfiguration.h"
#include "ovsettings/showsettingsdialog.h"
#include "tests/host/recordingaddin.h"

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

int main() {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    std::string root = (std::filesystem::temp_directory_path() / "ovtest.XXXXXX").string();
    if (!mkdtemp(root.data()))
        return 2;
    std::filesystem::create_directories(root + "/standard");
    std::filesystem::create_directories(root + "/user");
    setenv("RSR_HOME", root.c_str(), 1);
    setenv("WDIR", (root + "/user").c_str(), 1);
    std::ofstream(root + "/standard/settings.xml")
        << "<settings><dialog><name>A</name><classid>A</classid><localization>" RECORDING_ADDIN
           "</localization></dialog></settings>";

    Orv::iAppConfiguration configuration;
    Orv::CProjectConfiguration project;
    bool ok = configuration.load();
    // Twice, since the application object comes and goes with each call.
    for (int call = 0; call < 2 && ok; ++call) {
        recorder() = Recorder();
        recorder().acts["A.onEnter"] = [] {
            QTimer::singleShot(0, qApp, [] {
                if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
                    dialog->reject();
            });
        };
        ok = ovsettings::showSettingsDialog(configuration, project, nullptr) == 0 &&
             !QCoreApplication::instance() && std::string(std::setlocale(LC_ALL, nullptr)) == "C" &&
             !recorder().calls.empty();
    }
    std::filesystem::remove_all(root);
    std::puts(ok ? "ok" : "failed");
    return ok ? 0 : 1;
}
