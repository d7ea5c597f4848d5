#include "suite/configuration/configurationmanager.h"

#include "details/platform/paths.h"

#include <memory>
#include <utility>

namespace suite {

namespace {

constexpr const char* kFileName = "/orvane.xml";

} // namespace

Orv::IOvConfiguration* ConfigurationManager::GetConfiguration(const std::string& directory, Access access) {
    const auto place = platform::resolveExisting(directory);
    if (!place || !platform::isDirectory(*place))
        return nullptr;
    const std::string path = *place + kFileName;
    auto configuration =
        std::make_unique<Configuration>(platform::resolveExisting(path).value_or(path), log_);
    const bool isWhole =
        configuration->read(access == Access::write ? takeKept(configuration->path()) : std::nullopt);
    return isWhole || access == Access::write ? configuration.release() : nullptr;
}

bool ConfigurationManager::ReleaseConfiguration(Orv::IOvConfiguration* configuration) {
    // Every configuration there is came from this manager.
    const std::unique_ptr<Configuration> owned(static_cast<Configuration*>(configuration));
    if (!owned)
        return true;
    if (!owned->save())
        return false;
    keep(owned->takeContents());
    return true;
}

std::optional<Configuration::Contents> ConfigurationManager::takeKept(const std::string& path) {
    const std::lock_guard guard(mutex_);
    return kept_ && kept_->path == path ? std::exchange(kept_, std::nullopt) : std::nullopt;
}

void ConfigurationManager::keep(std::optional<Configuration::Contents> contents) {
    if (!contents)
        return;
    const std::lock_guard guard(mutex_);
    kept_ = std::move(contents);
}

void ConfigurationManager::SetErrorHandler(ErrorHandler handler) {
    log_.setHandler(std::move(handler));
}

} // namespace suite

namespace Orv {

IOvConfigurationManager& IOvConfigurationManager::Instance() {
    static suite::ConfigurationManager manager;
    return manager;
}

} // namespace Orv
