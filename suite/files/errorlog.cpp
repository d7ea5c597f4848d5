#include "suite/files/errorlog.h"

#include "platform/printable.h"

#include <algorithm>
#include <utility>

namespace suite {

using platform::FileStamp;

void ErrorLog::setHandler(Handler handler) {
    const Handler told = handler;
    {
        const std::lock_guard guard(mutex_);
        handler_ = std::move(handler);
    }
    // A program loads before it has a window to show anything in.
    if (told)
        std::ranges::for_each(standingComplaints(), told);
}

void ErrorLog::report(const std::string& message) {
    Handler told;
    {
        const std::lock_guard guard(mutex_);
        told = handler_;
    }
    if (told)
        told(message);
    else
        platform::tell(message);
}

std::set<std::string> ErrorLog::standingComplaints() {
    const std::lock_guard guard(mutex_);
    std::set<std::string> messages;
    for (const auto& [path, known] : complaints_) {
        if (known.stamp.isOfFile() && known.stamp == FileStamp::of(path))
            messages.insert(known.messages.begin(), known.messages.end());
    }
    return messages;
}

void ErrorLog::reportOnce(const platform::Error& error) {
    const std::string message = error.text();
    {
        const std::lock_guard guard(mutex_);
        Complaints& known = complaints_[error.path];
        if (const auto stamp = FileStamp::of(error.path); stamp != known.stamp)
            known = {stamp, {}};
        if (!known.messages.insert(message).second)
            return;
    }
    report(message);
}

ErrorLog& errorLog() {
    static ErrorLog log;
    return log;
}

} // namespace suite
