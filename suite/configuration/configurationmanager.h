#pragma once

#include "suite/configuration.h"
#include "suite/configuration/errorlog.h"

namespace suite {

/// The configurations of directories on disk, one file `orvane.xml` each.
class ConfigurationManager final : public Orv::IOvConfigurationManager {
public:
    Orv::IOvConfiguration* GetConfiguration(const std::string& directory, Access access) override;
    bool ReleaseConfiguration(Orv::IOvConfiguration* configuration) override;
    void SetErrorHandler(ErrorHandler handler) override;

private:
    ErrorLog log_;
};

} // namespace suite
