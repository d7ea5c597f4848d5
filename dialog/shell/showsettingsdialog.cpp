#include "ovsettings/showsettingsdialog.h"

#include "dialog/shell/settingsdialog.h"
#include "platform/installation.h"

#include <QtWidgets/QApplication>

#include <clocale>
#include <memory>
#include <stdexcept>
#include <string>

namespace ovsettings {

namespace {

/// An application object for a host that has none, for one call. Qt switches the process to the user's locale
/// when it starts; the host gets its own back.
class ApplicationForCall {
public:
    ApplicationForCall() {
        if (qobject_cast<QApplication*>(QCoreApplication::instance()))
            return;
        if (QCoreApplication::instance())
            throw std::logic_error(
                "showSettingsDialog needs a QApplication; the host's application object is none");
        if (const char* current = std::setlocale(LC_ALL, nullptr))
            hostLocale_ = current;
        application_ = std::make_unique<QApplication>(argc_, argv_);
    }

    ~ApplicationForCall() {
        if (!application_)
            return;
        application_.reset();
        std::setlocale(LC_ALL, hostLocale_.c_str());
    }

    ApplicationForCall(const ApplicationForCall&) = delete;
    ApplicationForCall& operator=(const ApplicationForCall&) = delete;

private:
    // Both must outlive the application object, which keeps references to them.
    char name_[8] = "Orvane";
    char* argv_[2] = {name_, nullptr};
    int argc_ = 1;
    std::string hostLocale_;
    std::unique_ptr<QApplication> application_;
};

int run(Orv::iAppConfiguration& appConfig, Orv::CProjectConfiguration& projectConfig,
        const std::string* catalogueFileName, Orv::IUpdater* updater) {
    platform::fixInstallationDirectory(); // the configuration may not have been loaded
    const ApplicationForCall application;
    CSettingsDialog dialog(appConfig, projectConfig, updater);
    if (catalogueFileName)
        dialog.setCatalogueFile(*catalogueFileName);
    return dialog.DoModal() == 1 ? 1 : 0;
}

} // namespace

int showSettingsDialog(Orv::iAppConfiguration& appConfig, Orv::CProjectConfiguration& projectConfig,
                       const std::string& catalogueFileName, Orv::IUpdater* updater) {
    return run(appConfig, projectConfig, &catalogueFileName, updater);
}

int showSettingsDialog(Orv::iAppConfiguration& appConfig, Orv::CProjectConfiguration& projectConfig,
                       Orv::IUpdater* updater) {
    return run(appConfig, projectConfig, nullptr, updater);
}

} // namespace ovsettings
