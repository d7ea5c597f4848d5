#pragma once

#include <sys/types.h>

#include <cstdint>
#include <functional>
#include <optional>

namespace testsupport {

/// A copy of this process that is stopped whenever it enters or leaves a system call between two marks, so
/// that it can be killed right there, or be told that the call failed.
class SyscallTracer {
public:
    /// Runs `body`, as startChild does, up to its first mark.
    explicit SyscallTracer(const std::function<int()>& body);
    ~SyscallTracer() { kill(); }
    SyscallTracer(const SyscallTracer&) = delete;
    SyscallTracer& operator=(const SyscallTracer&) = delete;

    /// For the body: the first mark begins what is traced, the second one ends it.
    static void mark();
    /// False where no process may trace another one, and on machines whose registers are not known here.
    static bool isAvailable();

    struct Call {
        std::uint64_t number; ///< one of SYS_*
        bool entered;         ///< false for its end
        bool failed;          ///< known at its end
    };
    /// Lets it run to the next beginning or end of a call. @return nothing if the second mark, or its end,
    /// came first.
    std::optional<Call> next();

    /// Where a call begins: it is not made, and ends with this error. A descriptor is closed all the same, as
    /// the system does it.
    void fail(int code);

    /// Lets it run to its end. @return its exit status, or minus the signal that ended it.
    int finish();
    void kill();

private:
    bool resume(int signal = 0);
    bool atCall() const;
    int end() const;

    pid_t child_;
    int status_ = 0;
    std::uint64_t number_ = 0;
};

} // namespace testsupport
