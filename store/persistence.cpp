#include "store/persistence.h"

#include "platform/asciicase.h"
#include "platform/installation.h"
#include "store/configurationhandle.h"
#include "store/numbers.h"
#include "store/overlay.h"
#include "store/transfer.h"
#include "suite/wdirutils.h"

#include <algorithm>
#include <utility>

namespace Orv {

namespace {

using Impl = iAppConfiguration::Impl;
using Access = IOvConfigurationManager::Access;

std::string withForwardSlashes(std::string path) {
    std::ranges::replace(path, '\\', '/');
    return path;
}

/// Whether the least specific directory lies inside the installation. The lower-cased name is what counts;
/// where case distinguishes files, an installation whose path has a capital letter is known by its own
/// spelling only.
bool liesInside(const std::string& directory, const std::string& home) {
    return directory.find(platform::inLowerCase(home)) != std::string::npos ||
           directory.find(home) != std::string::npos;
}

/// `RSR_HOME` as the list of directories has it.
std::string installation() {
    auto home = withForwardSlashes(platform::installationDirectory());
    while (home.size() > 1 && home.back() == '/')
        home.pop_back();
    return home;
}

bool findDirectories(Impl& store, const std::string& projectPath) {
    const auto home = installation();
    const bool found = projectPath.empty() ? WdirUtils::GetWDIRs(store.directories)
                                           : WdirUtils::GetWDIRs(store.directories, projectPath);
    if (home.empty() || !found)
        return false;
    return store.directories.size() >= 2 && liesInside(store.directories.back(), home);
}

/// Finds the working directories, or keeps those of the last call for the same project.
bool prepareDirectories(Impl& store, const std::string& projectPath) {
    if (projectPath == store.lastProjectPath && !store.writeDirectory.empty() && !store.directories.empty())
        return true;
    store.lastProjectPath = projectPath;
    if (!findDirectories(store, projectPath)) {
        // A list that is not fit for use must not be found by the next call. The one before it is forgotten,
        // too, which is meant for hosts: their next load looks at the environment again.
        store.directories.clear();
        store.writeDirectory.clear();
        return false;
    }
    store.writeDirectory = store.directories.front();
    return true;
}

/// From the installation to the user. Where no directory has a configuration, the catalogue's defaults stand.
void readLevels(Impl& store) {
    store.levels.resize(store.directories.size());
    for (std::size_t place = store.directories.size(); place-- > 0;) {
        const auto& directory = store.directories[place];
        store.levels[place] = readLevel(directory).value_or(Level{directory, false, {}});
        for (const auto& statement : store.levels[place].statements)
            overlay(store.records[statement.row], statement, place);
    }
}

/// Goes by the row's number: a sink may load again.
void notifyOfAll(Impl& store) {
    for (std::size_t row = 0; row < store.records.size() && !store.sinks.empty(); ++row) {
        const auto& property = store.records[row].property;
        if (!property.values.empty())
            store.notify(property.name, floatFromText(property.values.front()));
    }
}

} // namespace

bool loadStore(Impl& store, const std::string& projectPath) {
    platform::fixInstallationDirectory();
    store.registerCatalogue();
    if (!prepareDirectories(store, projectPath))
        return false;
    readLevels(store);
    for (std::size_t row = 0; row < store.records.size(); ++row)
        store.refreshCache(row);
    store.heldIsUnchecked = true;
    notifyOfAll(store);
    return true;
}

namespace {

/// Whether the file that the user's level was read from is damaged by now, so that it yields an empty
/// configuration for writing and none for reading. One that somebody emptied or took away yields both.
bool lostWhatItHeld(const Impl& store, const IOvConfiguration& configuration) {
    if (!store.knowsWrittenLevel() || store.levels.front().statements.empty())
        return false;
    StatementReader reader(configuration);
    const bool saysNothing = std::ranges::none_of(
        store.levels.front().statements, [&](const auto& held) { return reader.read(held.row).has_value(); });
    return saysNothing && !openConfiguration(store.writeDirectory, Access::read);
}

} // namespace

bool saveStore(Impl& store) {
    store.checkHeld();
    // Until it has worked; where nothing is to be saved, nothing can fail.
    store.lastSaveFailed = store.pending.any();
    if (!prepareDirectories(store, store.lastProjectPath))
        return false;
    for (std::size_t row = 0; row < store.records.size(); ++row) {
        if (store.pending[row])
            store.flushCache(row);
    }
    auto configuration = openConfiguration(store.writeDirectory, Access::write);
    if (!configuration)
        return false;
    if (lostWhatItHeld(store, *configuration))
        restoreLevel(store.levels.front(), *configuration);
    auto rows = writeChanges(store, *configuration);
    store.lastSaveFailed = !release(std::move(configuration));
    if (!store.lastSaveFailed)
        settle(store, std::move(rows));
    return true;
}

} // namespace Orv
