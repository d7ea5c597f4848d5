#include "suite/configuration/errorlog.h"

#include <sys/stat.h>

#include <cstdio>

namespace suite {

namespace {

std::vector<long long> fileState(const std::string& path) {
    struct stat status;
    if (stat(path.c_str(), &status) != 0)
        return {};
    return {static_cast<long long>(status.st_dev), static_cast<long long>(status.st_ino),
            static_cast<long long>(status.st_size), static_cast<long long>(status.st_mtim.tv_sec),
            static_cast<long long>(status.st_mtim.tv_nsec)};
}

} // namespace

void ErrorLog::setHandler(Handler handler) {
    const std::lock_guard guard(mutex_);
    handler_ = std::move(handler);
}

void ErrorLog::report(const std::string& message) {
    Handler handler;
    {
        const std::lock_guard guard(mutex_);
        handler = handler_;
    }
    if (handler)
        handler(message);
    else
        std::fputs((message + "\n").c_str(), stderr);
}

void ErrorLog::reportOnce(const std::string& path, const std::string& message) {
    {
        const std::lock_guard guard(mutex_);
        Complaints& known = complaints_[path];
        if (auto state = fileState(path); state != known.fileState)
            known = {std::move(state), {}};
        if (!known.messages.insert(message).second)
            return;
    }
    report(message);
}

} // namespace suite
