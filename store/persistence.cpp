#include "store/persistence.h"

#include "platform/asciicase.h"
#include "platform/installation.h"
#include "platform/paths.h"
#include "store/configurationhandle.h"
#include "store/kinds.h"
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

/// Whether the least specific directory lies inside the installation. The lower-cased name is what counts;
/// where case distinguishes files, an installation whose path has a capital letter is known by its own
/// spelling only.
bool liesInside(const std::string& directory, const std::string& home) {
    return directory.find(platform::inLowerCase(home)) != std::string::npos ||
           directory.find(home) != std::string::npos;
}

/// `RSR_HOME` as the list of directories has it.
std::string installation() {
    return platform::asDirectoryEntry(platform::installationDirectory());
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

/// Where no directory has a configuration, the catalogue's defaults stand.
std::vector<Level> readLevels(const std::vector<std::string>& directories, std::vector<Level> former) {
    former.resize(directories.size());
    std::vector<Level> levels(directories.size());
    for (std::size_t place = directories.size(); place-- > 0;) {
        const auto& directory = directories[place];
        const auto* level = readLevel(directory, &former[place], levels[place]);
        if (!level)
            levels[place] = Level(directory, false, 0);
        else if (level == &former[place])
            levels[place] = std::move(former[place]);
    }
    return levels;
}

/// Most rows say what the catalogue does, and the others need no record.
void fillCache(Impl& store) {
    store.cache.restart();
    std::vector<bool> isLaid(store.records.size());
    std::vector<std::string_view> fields;
    for (const auto& level : store.records.levels()) {
        for (const auto& [row, said, notes] : level.statements()) {
            if (isLaid[row] || kindTraits(catalogue()[row].kind).cache == Cache::none)
                continue;
            isLaid[row] = true;
            if (layValues(row, store.records.levels(), fields))
                store.cache.refresh(row, fields);
            else
                store.refreshCache(row);
        }
    }
}

/// Goes by the row's number: a sink may load again.
void notifyOfAll(Impl& store) {
    for (std::size_t row = 0; row < store.records.size() && !store.sinks.empty(); ++row) {
        const auto& property = store.records.look(row).property;
        if (!property.values.empty())
            store.notify(property.name, floatFromText(property.values.front()));
    }
}

} // namespace

bool loadStore(Impl& store, const std::string& projectPath) {
    platform::fixInstallationDirectory();
    auto former = store.registerCatalogue();
    if (!prepareDirectories(store, projectPath))
        return false;
    store.records.exchangeLevels(readLevels(store.directories, std::move(former)));
    fillCache(store);
    notifyOfAll(store);
    return true;
}

namespace {

/// Whether the file that the user's level was read from is damaged by now, so that it yields an empty
/// configuration for writing and none for reading. One that somebody emptied or took away yields both.
bool lostWhatItHeld(const Impl& store, const IOvConfiguration& configuration) {
    if (!store.knowsWrittenLevel())
        return false;
    const auto& held = store.records.levels().front().statements();
    StatementReader reader(configuration);
    const bool saysNothing = std::ranges::none_of(
        held, [&reader](const Statement& statement) { return reader.read(statement.row).has_value(); });
    return saysNothing && !held.empty() && !openConfiguration(store.writeDirectory, Access::read);
}

} // namespace

bool saveStore(Impl& store) {
    store.searchRedundant();
    // Until it has worked; where nothing is to be saved, nothing can fail.
    store.lastSaveFailed = store.changes.isAnyPending();
    if (!prepareDirectories(store, store.lastProjectPath))
        return false;
    auto configuration = openConfiguration(store.writeDirectory, Access::write);
    if (!configuration)
        return false;
    if (lostWhatItHeld(store, *configuration))
        restoreLevel(store.records.levels().front(), *configuration);
    auto rows = writeChanges(store, *configuration);
    store.lastSaveFailed = !release(std::move(configuration));
    if (!store.lastSaveFailed)
        settle(store, std::move(rows));
    return true;
}

} // namespace Orv
