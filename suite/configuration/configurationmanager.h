#pragma once

#include "suite/configuration.h"
#include "suite/configuration/configuration.h"
#include "suite/configuration/errorlog.h"

#include <mutex>
#include <optional>

namespace suite {

/// The configurations of directories on disk, one file `orvane.xml` each.
class ConfigurationManager final : public Orv::IOvConfigurationManager {
public:
    Orv::IOvConfiguration* GetConfiguration(const std::string& directory, Access access) override;
    bool ReleaseConfiguration(Orv::IOvConfiguration* configuration) override;
    void SetErrorHandler(ErrorHandler handler) override;

private:
    std::optional<Configuration::Contents> takeKept(const std::string& path);
    void keep(std::optional<Configuration::Contents> contents);

    ErrorLog log_;
    std::mutex mutex_;
    /// The file that was released last. A program loads the user's last, and saves it again and again, at
    /// each page of a dialog.
    std::optional<Configuration::Contents> kept_;
};

} // namespace suite
