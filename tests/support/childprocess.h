#pragma once

#include <grp.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <functional>

namespace testsupport {

/// Starts a copy of this process that runs `body` and ends with its result as exit status.
inline pid_t startChild(const std::function<int()>& body) {
    const pid_t child = fork();
    if (child == 0)
        _exit(body());
    return child;
}

/// Waits for a child. @return its exit status, or minus the signal that ended it.
inline int endOfChild(pid_t child) {
    int status = 0;
    if (waitpid(child, &status, 0) != child)
        return EXIT_FAILURE;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

inline int runInChild(const std::function<int()>& body) {
    return endOfChild(startChild(body));
}

constexpr uid_t kNobody = 65534;

/// Runs `body` as a user whom file permissions bind: root may write anywhere.
inline int runUnprivileged(const std::function<int()>& body) {
    return runInChild([&] {
        if (geteuid() == 0 && (setgroups(0, nullptr) != 0 || setresgid(kNobody, kNobody, kNobody) != 0 ||
                               setresuid(kNobody, kNobody, kNobody) != 0))
            return EXIT_FAILURE;
        return body();
    });
}

/// Gives a file or directory to the user of runUnprivileged.
inline bool giveToUnprivileged(const char* path) {
    return geteuid() != 0 || chown(path, kNobody, kNobody) == 0;
}

} // namespace testsupport
