#include "app/workspace.h"

#include "app/outcome.h"

#include <ovsettings/topleveldialogprovider.h>
#include <suite/configuration.h>
#include <suite/openproject.h>
#include <suite/projectfile.h>
#include <suite/wdirutils.h>

#include <QtCore/QStandardPaths>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace app {

namespace fs = std::filesystem;

namespace {

fs::path program() {
    return fs::read_symlink("/proc/self/exe");
}

// A program in its build tree has a file beside it that names the installation of the source tree.
fs::path sampleInstallation() {
    const fs::path self = program();
    std::ifstream file(self.string() + ".home");
    std::string home;
    if (std::getline(file, home))
        return home;
    return (self.parent_path() / OV_SAMPLE_FROM_PROGRAM).lexically_normal();
}

fs::path userDirectory() {
    const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return fs::path(config.toStdString()) / "orvane";
}

std::string defaultWorkingDirectories(const fs::path& home) {
    const fs::path user = userDirectory();
    std::error_code error;
    fs::create_directories(user, error);
    if (error)
        refuse("the user's directory " + user.string() + " cannot be made: " + error.message());

    std::string list = user.string();
    // The list would be cut there, and the first piece be written to.
    if (list.find(';') != std::string::npos) {
        refuse("the user's directory " + list + " has a semicolon in its path; name another one with --wdir");
        list.clear();
    }
    if (fs::is_directory(home / "site", error))
        list += ";" + (home / "site").string();
    return list + ";" + (home / "standard").string();
}

const char* nonEmptyVariable(const char* name) {
    const char* value = std::getenv(name);
    return value && *value ? value : nullptr;
}

std::string lowerCase(std::string text) {
    std::ranges::transform(text, text.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

// RSR_HOME with forward slashes, as the store reads it; empty if it is not set.
std::string installation() {
    const char* home = nonEmptyVariable("RSR_HOME");
    std::string path = home ? home : "";
    std::ranges::replace(path, '\\', '/');
    return path;
}

// The store says only that the directories are unusable; these are the reasons there are.
std::string reasonOfFailedLoad() {
    const std::string home = installation();
    if (home.empty())
        return "RSR_HOME is empty; it has to name the installation";
    if (!nonEmptyVariable("WDIR"))
        return "WDIR is empty; it has to list the working directories, the user's first";

    std::vector<std::string> directories;
    if (!Orv::WdirUtils::GetWDIRs(directories))
        return "the working directories cannot be read from WDIR";
    if (directories.size() < 2)
        return "WDIR has to list at least two directories, the user's and the installation's";
    const std::string& last = directories.back();
    if (last.find(home) == std::string::npos && last.find(lowerCase(home)) == std::string::npos)
        return "the last directory of WDIR, " + last + ", is not inside RSR_HOME, " + home;
    return "the working directories " + std::string(std::getenv("WDIR")) + " are not usable";
}

} // namespace

void setUpEnvironment(const Options& options) {
    if (options.home)
        setenv("RSR_HOME", options.home->c_str(), 1);
    else if (!std::getenv("RSR_HOME"))
        setenv("RSR_HOME", sampleInstallation().c_str(), 1);

    if (options.workingDirectories)
        setenv("WDIR", options.workingDirectories->c_str(), 1);
    else if (!std::getenv("WDIR"))
        setenv("WDIR", defaultWorkingDirectories(std::getenv("RSR_HOME")).c_str(), 1);
}

std::optional<std::string> loadConfiguration(Orv::iAppConfiguration& configuration) {
    std::error_code error;
    if (const std::string home = installation(); !home.empty() && !fs::is_directory(home, error))
        return "there is no installation: RSR_HOME names " + home + ", which is no directory";
    if (configuration.load())
        return std::nullopt;
    return "the configuration cannot be loaded: " + reasonOfFailedLoad();
}

std::optional<std::string> obstacleToSaving(const Orv::iAppConfiguration& configuration) {
    const std::vector<std::string> directories = configuration.workingDirectories();
    if (!directories.empty() && directories.front().empty())
        return "the first entry of WDIR is empty, so there is no user's directory to save in";
    // The manager knows directories by their names in another case, too.
    auto& manager = Orv::IOvConfigurationManager::Instance();
    auto* user = directories.empty() ? nullptr
                                     : manager.GetConfiguration(directories.front(),
                                                                Orv::IOvConfigurationManager::Access::write);
    if (!directories.empty() && !user)
        return "the user's directory " + directories.front() + " does not exist, so nothing could be saved";
    manager.ReleaseConfiguration(user);
    return std::nullopt;
}

Project::Project() = default;
Project::~Project() = default;

std::optional<std::string> Project::open(const Options& options) {
    if (!options.project)
        return std::nullopt;
    std::string reason;
    opened_ = NProjectTools::COpenProject::open(*options.project, reason);
    if (opened_) {
        opened_->configuration().topLevelProvider = options.netlist
                                                        ? toplevelsettings::getNetlistTopLevelProvider()
                                                        : toplevelsettings::getTopLevelSettingsProvider();
        return std::nullopt;
    }
    return "the project cannot be opened: " + reason;
}

Orv::CProjectConfiguration& Project::configuration() {
    return opened_ ? opened_->configuration() : none_;
}

void Project::saveLibraries() {
    if (opened_ && configuration().librariesChanged && opened_->saveLibraries())
        configuration().librariesChanged = false;
}

bool openConfiguration(const Options& options, Orv::iAppConfiguration& configuration) {
    setUpEnvironment(options);
    const std::optional<std::string> failure = loadConfiguration(configuration);
    if (failure)
        refuse(*failure);
    return !failure;
}

ScopedErrorHandler::ScopedErrorHandler(std::function<void(const std::string& message)> handler) {
    Orv::IOvConfigurationManager::Instance().SetErrorHandler(handler);
    NProjectTools::CProjectFile::SetErrorHandler(std::move(handler));
}

ScopedErrorHandler::~ScopedErrorHandler() {
    Orv::IOvConfigurationManager::Instance().SetErrorHandler({});
    NProjectTools::CProjectFile::SetErrorHandler({});
}

} // namespace app
