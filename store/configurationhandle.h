#pragma once

#include "suite/configuration.h"

#include <memory>
#include <string>

namespace Orv {

struct ConfigurationRelease {
    void operator()(IOvConfiguration* configuration) const {
        IOvConfigurationManager::Instance().ReleaseConfiguration(configuration);
    }
};

/// A directory's configuration, given back at the end of the scope; that is also when changes are written.
using ConfigurationHandle = std::unique_ptr<IOvConfiguration, ConfigurationRelease>;

/// Gives a configuration back before the end of its scope. @return false if its changes could not be written.
inline bool release(ConfigurationHandle configuration) {
    return IOvConfigurationManager::Instance().ReleaseConfiguration(configuration.release());
}

inline ConfigurationHandle openConfiguration(const std::string& directory,
                                             IOvConfigurationManager::Access access) {
    return ConfigurationHandle(IOvConfigurationManager::Instance().GetConfiguration(directory, access));
}

} // namespace Orv
