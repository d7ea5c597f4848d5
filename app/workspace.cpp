#include "app/workspace.h"

#include "app/outcome.h"
#include "platform/homedirectory.h"
#include "platform/installation.h"
#include "platform/paths.h"

#include <suite/configuration.h>
#include <suite/wdirutils.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace app {

namespace fs = std::filesystem;
using platform::Error;
using platform::Result;

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

const char* nonEmptyVariable(const char* name) {
    const char* value = std::getenv(name);
    return value && *value ? value : nullptr;
}

// Where desktops look for a user's settings; a relative path does not count there.
fs::path userDirectory() {
    const char* config = nonEmptyVariable("XDG_CONFIG_HOME");
    if (config && *config == '/')
        return fs::path(config) / "orvane";
    return fs::path(platform::homeDirectory().value_or("/")) / ".config/orvane";
}

// By the manager of configurations, which knows directories by their names in another case, too, and with
// backslashes.
bool isDirectory(const std::string& path) {
    auto& manager = Orv::IOvConfigurationManager::Instance();
    auto* configuration = manager.GetConfiguration(path, Orv::IOvConfigurationManager::Access::write);
    manager.ReleaseConfiguration(configuration);
    return configuration != nullptr;
}

std::string defaultWorkingDirectories(const std::string& home) {
    std::string list = userDirectory().string();
    if (isDirectory(home + "/site"))
        list += ";" + home + "/site";
    return list + ";" + home + "/standard";
}

// The list of working directories would be cut there, and the first piece be written to.
std::optional<std::string> objectionToSemicolon(const std::string& what, const std::string& directory) {
    if (directory.find(';') == std::string::npos)
        return std::nullopt;
    return what + " " + directory +
           " has a semicolon in its path, so the working directories have to be named with --wdir";
}

std::string lowerCase(std::string text) {
    std::ranges::transform(text, text.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

// The store says only that the directories are unusable; these are the reasons there are.
std::string reasonOfFailedLoad() {
    const std::string home = installation();
    if (home.empty())
        return "RSR_HOME is empty; it has to name the installation";
    const char* list = nonEmptyVariable("WDIR");
    if (!list)
        return "WDIR is empty; it has to list the working directories, the user's first";

    std::vector<std::string> directories;
    if (!Orv::WdirUtils::GetWDIRs(directories))
        return "the working directories cannot be read from WDIR";
    if (directories.size() < 2)
        return "WDIR has to list at least two directories, the user's and the installation's";
    const std::string& last = directories.back();
    if (last.find(home) == std::string::npos && last.find(lowerCase(home)) == std::string::npos)
        return "the last directory of WDIR, " + last + ", is not inside RSR_HOME, " + home;
    return std::string("the working directories ") + list + " are not usable";
}

} // namespace

fs::path moduleDirectory() {
    return (program().parent_path() / OV_MODULES_FROM_PROGRAM).lexically_normal();
}

std::string installation() {
    return platform::asDirectoryEntry(platform::installationDirectory());
}

Result<> setUpEnvironment(const Options& options) {
    if (options.home)
        setenv("RSR_HOME", options.home->c_str(), 1);
    else if (!std::getenv("RSR_HOME"))
        setenv("RSR_HOME", sampleInstallation().c_str(), 1);

    if (options.workingDirectories) {
        setenv("WDIR", options.workingDirectories->c_str(), 1);
    } else if (!std::getenv("WDIR")) {
        const std::string home = installation();
        if (auto objection = objectionToSemicolon("the user's directory", userDirectory().string()))
            return Error{.cause = *std::move(objection)};
        if (auto objection = objectionToSemicolon("the installation", home))
            return Error{.cause = *std::move(objection)};
        setenv("WDIR", defaultWorkingDirectories(home).c_str(), 1);
    }
    return {};
}

Result<> loadConfiguration(Orv::iAppConfiguration& configuration) {
    if (const std::string home = installation(); !home.empty() && !isDirectory(home))
        return Error{.cause = "there is no installation: RSR_HOME names " + home + ", which is no directory"};
    if (configuration.load())
        return {};
    return Error{.cause = "the configuration cannot be loaded: " + reasonOfFailedLoad()};
}

std::vector<std::string> missingDirectories(const Orv::iAppConfiguration& configuration) {
    std::vector<std::string> lines;
    for (const std::string& directory : configuration.workingDirectories()) {
        const bool isMade = directory.empty() || directory == userDirectory().string();
        if (!isMade && !isDirectory(directory))
            lines.push_back("WDIR names " + directory + ", which does not exist");
    }
    return lines;
}

void tellMissingDirectories(const Orv::iAppConfiguration& configuration) {
    for (const std::string& line : missingDirectories(configuration))
        refuse(line);
}

Result<> prepareToSave(Orv::iAppConfiguration& configuration) {
    const std::vector<std::string> directories = configuration.workingDirectories();
    if (directories.empty())
        return {};
    const std::string& user = directories.front();
    if (user.empty())
        return Error{.cause = "the first entry of WDIR is empty, so there is no user's directory to save in"};
    if (user == userDirectory().string()) {
        std::error_code error;
        const bool isNew = fs::create_directories(user, error);
        if (error)
            return Error{.cause = "the user's directory " + user + " cannot be made: " + error.message()};
        if (isNew)
            configuration.load();
    }
    if (!isDirectory(user))
        return Error{.cause = "the user's directory " + user + " does not exist, so nothing could be saved"};
    return {};
}

bool openConfiguration(const Options& options, Orv::iAppConfiguration& configuration) {
    auto ready = setUpEnvironment(options);
    if (ready)
        ready = loadConfiguration(configuration);
    if (!ready)
        refuse(ready.errorText());
    return static_cast<bool>(ready);
}

bool openToRead(const Options& options, Orv::iAppConfiguration& configuration) {
    if (!openConfiguration(options, configuration))
        return false;
    tellMissingDirectories(configuration);
    return true;
}

ScopedErrorHandler::ScopedErrorHandler(std::function<void(const std::string& message)> handler) {
    Orv::IOvConfigurationManager::Instance().SetErrorHandler(std::move(handler));
}

ScopedErrorHandler::~ScopedErrorHandler() {
    Orv::IOvConfigurationManager::Instance().SetErrorHandler({});
}

} // namespace app
