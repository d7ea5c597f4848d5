#pragma once

#include "suite/configuration.h"
#include "suite/configurations/configurationfile.h"
#include "suite/files/errorlog.h"

#include <list>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace suite {

/// The configurations of directories on disk, one file `orvane.xml` each.
class ConfigurationManager final : public Orv::IOvConfigurationManager {
public:
    Orv::IOvConfiguration* GetConfiguration(const std::string& directory, Access access) override;
    bool ReleaseConfiguration(Orv::IOvConfiguration* configuration) override;
    /// The log is there before it, and so outlives it: hosts release configurations as they end.
    ConfigurationManager() { errorLog(); }

    void SetErrorHandler(ErrorHandler handler) override;
    std::string FileOf(const std::string& directory) const override;
    void ReportError(const std::string& message) override;

private:
    std::unique_ptr<ConfigurationFile> readAt(const std::string& path);
    platform::LockPatience patienceWith(const std::string& path);
    void setPatience(const std::string& path, const platform::LockPatience& patience);
    std::optional<ConfigurationFile::Contents> takeKept(const std::string& path);
    void keep(std::optional<ConfigurationFile::Contents> contents);

    std::mutex mutex_;
    std::map<std::string, platform::LockPatience> patience_; ///< by path
    /// The files that were released last, the latest first. A program loads the same levels for each project
    /// and for each report, and saves the user's at each page of a dialog; most files are then the same as
    /// before, byte by byte, and are not looked through again.
    std::list<ConfigurationFile::Contents> kept_;
};

} // namespace suite
