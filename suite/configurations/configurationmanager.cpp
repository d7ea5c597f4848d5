#include "suite/configurations/configurationmanager.h"

#include "platform/paths.h"
#include "platform/printable.h"
#include "suite/files/errorlog.h"

#include <algorithm>
#include <utility>

namespace suite {

namespace {

constexpr const char* kFileName = "/orvane.xml";
constexpr std::size_t kMostKept = 8;            // levels of one list of working directories
constexpr std::size_t kLargestKept = 12U << 20; // in memory, where a usual file takes three times its size

/// Where a directory's configuration is, or would be; nothing if there is no such directory.
std::optional<std::string> fileIn(const std::string& directory) {
    if (directory.empty())
        return std::nullopt;
    if (auto file = platform::resolveExisting(directory + kFileName))
        return file;
    const auto place = platform::resolveExisting(directory);
    return place && platform::isDirectory(*place) ? std::optional(*place + kFileName) : std::nullopt;
}

} // namespace

Orv::IOvConfiguration* ConfigurationManager::GetConfiguration(const std::string& directory, Access access) {
    const auto exact = directory.empty() ? std::nullopt : platform::exactPath(directory + kFileName);
    auto configuration = exact ? readAt(*exact) : nullptr;
    // To look for another spelling takes more calls of the system than all the rest.
    if (!configuration || !configuration->wasOpened()) {
        const auto path = fileIn(directory);
        if (!path)
            return nullptr;
        if (path != exact)
            configuration = readAt(*path);
    }
    return configuration->isWhole() || access == Access::write ? configuration.release() : nullptr;
}

std::unique_ptr<ConfigurationFile> ConfigurationManager::readAt(const std::string& path) {
    auto configuration = std::make_unique<ConfigurationFile>(path);
    configuration->read(takeKept(path));
    return configuration;
}

bool ConfigurationManager::ReleaseConfiguration(Orv::IOvConfiguration* configuration) {
    // Every configuration there is came from this manager.
    const std::unique_ptr<ConfigurationFile> owned(static_cast<ConfigurationFile*>(configuration));
    if (!owned)
        return true;
    auto patience = patienceWith(owned->path());
    const auto saved = owned->save(patience);
    setPatience(owned->path(), patience);
    if (!saved)
        return false;
    keep(owned->takeContents());
    return true;
}

platform::LockPatience ConfigurationManager::patienceWith(const std::string& path) {
    const std::lock_guard guard(mutex_);
    return patience_[path];
}

void ConfigurationManager::setPatience(const std::string& path, const platform::LockPatience& patience) {
    const std::lock_guard guard(mutex_);
    patience_[path] = patience;
}

std::optional<ConfigurationFile::Contents> ConfigurationManager::takeKept(const std::string& path) {
    const std::lock_guard guard(mutex_);
    const auto found = std::ranges::find(kept_, path, &ConfigurationFile::Contents::path);
    if (found == kept_.end())
        return std::nullopt;
    std::optional<ConfigurationFile::Contents> contents(std::move(*found));
    kept_.erase(found);
    return contents;
}

void ConfigurationManager::keep(std::optional<ConfigurationFile::Contents> contents) {
    if (!contents || contents->document.footprint() > kLargestKept)
        return;
    const std::lock_guard guard(mutex_);
    std::erase_if(kept_, [&contents](const auto& other) { return other.path == contents->path; });
    kept_.push_front(std::move(*contents));
    if (kept_.size() > kMostKept)
        kept_.pop_back();
}

void ConfigurationManager::SetErrorHandler(ErrorHandler handler) {
    errorLog().setHandler(std::move(handler));
}

std::string ConfigurationManager::FileOf(const std::string& directory) const {
    return directory + kFileName;
}

void ConfigurationManager::ReportError(const std::string& message) {
    errorLog().report(platform::printable(message)); // a file may have had a say in it
}

} // namespace suite

namespace Orv {

IOvConfigurationManager& IOvConfigurationManager::Instance() {
    static suite::ConfigurationManager manager;
    return manager;
}

} // namespace Orv
