#include "suite/configurations/errorlog.h"

#include "platform/printable.h"

#include <algorithm>

namespace suite {

using platform::FileStamp;

void ErrorLog::setHandler(Handler handler) {
    {
        const std::lock_guard guard(mutex_);
        handler_ = handler;
    }
    // A program loads before it has a window to show anything in.
    if (handler)
        std::ranges::for_each(standingComplaints(), handler);
}

void ErrorLog::report(const std::string& message) {
    if (const Handler told = handler())
        told(message);
    else
        platform::tell(message);
}

void ErrorLog::announce(const std::string& message) {
    platform::tell(message);
    if (const Handler told = handler())
        told(message);
}

ErrorLog::Handler ErrorLog::handler() {
    const std::lock_guard guard(mutex_);
    return handler_;
}

std::vector<std::string> ErrorLog::standingComplaints() {
    const std::lock_guard guard(mutex_);
    std::vector<std::string> messages;
    for (const auto& [path, known] : complaints_) {
        if (known.stamp.isOfFile() && known.stamp == FileStamp::of(path))
            messages.insert(messages.end(), known.messages.begin(), known.messages.end());
    }
    return messages;
}

void ErrorLog::reportOnce(const std::string& path, const std::string& message) {
    {
        const std::lock_guard guard(mutex_);
        Complaints& known = complaints_[path];
        if (const auto stamp = FileStamp::of(path); stamp != known.stamp)
            known = {stamp, {}};
        if (!known.messages.insert(message).second)
            return;
    }
    report(message);
}

} // namespace suite
