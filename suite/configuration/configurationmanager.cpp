#include "suite/configuration/configurationmanager.h"

#include "details/platform/paths.h"
#include "suite/configuration/configuration.h"

#include <memory>

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
    const bool isWhole = configuration->read();
    return isWhole || access == Access::write ? configuration.release() : nullptr;
}

bool ConfigurationManager::ReleaseConfiguration(Orv::IOvConfiguration* configuration) {
    // Every configuration there is came from this manager.
    const std::unique_ptr<Configuration> owned(static_cast<Configuration*>(configuration));
    return !owned || owned->save();
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
