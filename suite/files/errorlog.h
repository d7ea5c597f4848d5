#pragma once

#include "platform/error.h"
#include "platform/filestamp.h"
#include "suite/configuration.h"

#include <map>
#include <mutex>
#include <set>
#include <string>

namespace suite {

/// Tells the host, or else the standard error stream, what is wrong with a file.
class ErrorLog {
public:
    using Handler = Orv::IOvConfigurationManager::ErrorHandler;

    /// An empty handler restores the standard error stream. Any other is told at once what was complained of
    /// before, of files that are as they were.
    void setHandler(Handler handler);

    void report(const platform::Error& error) { report(error.text()); }
    void report(const std::string& message);

    /// For a complaint about what a file holds: said once for each state of the file, however often it is
    /// read.
    void reportOnce(const platform::Error& error);

private:
    struct Complaints {
        platform::FileStamp stamp; ///< of the file that they are about
        std::set<std::string> messages;
    };

    std::set<std::string> standingComplaints();

    std::mutex mutex_;
    Handler handler_;
    std::map<std::string, Complaints> complaints_; ///< by path
};

/// The one there is: what every handler of a host is set in, whatever call it was given to.
ErrorLog& errorLog();

} // namespace suite
