#pragma once

#include "platform/filestamp.h"
#include "suite/configuration.h"

#include <map>
#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace suite {

/// Tells the host, or else the standard error stream, what is wrong with configuration files.
class ErrorLog {
public:
    using Handler = Orv::IOvConfigurationManager::ErrorHandler;

    /// An empty handler restores the standard error stream. Any other is told at once what was complained of
    /// before, of files that are as they were.
    void setHandler(Handler handler);

    void report(const std::string& message);
    /// To the standard error stream, and to the handler if there is one.
    void announce(const std::string& message);

    /// For a complaint about what a file holds: said once for each state of the file, however often it is
    /// read.
    void reportOnce(const std::string& path, const std::string& message);

private:
    struct Complaints {
        platform::FileStamp stamp; ///< of the file that they are about
        std::set<std::string> messages;
    };

    Handler handler();
    std::vector<std::string> standingComplaints();

    std::mutex mutex_;
    Handler handler_;
    std::map<std::string, Complaints> complaints_; ///< by path
};

} // namespace suite
