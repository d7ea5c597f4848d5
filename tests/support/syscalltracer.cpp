#include "tests/support/syscalltracer.h"

#include "tests/support/childprocess.h"

#include <elf.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/user.h>

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <utility>

namespace testsupport {

namespace {

constexpr int kCallStop = SIGTRAP | 0x80;
constexpr int kRefused = 77;

// Where a call begins, none is made instead of it; where it ends, its result becomes `value`.
#if defined(__x86_64__)
bool answer(pid_t child, bool entered, long value) {
    const std::size_t place =
        entered ? offsetof(user_regs_struct, orig_rax) : offsetof(user_regs_struct, rax);
    return ptrace(PTRACE_POKEUSER, child, place, entered ? -1L : value) == 0;
}
#elif defined(__aarch64__)
bool answer(pid_t child, bool entered, long value) {
    int none = -1;
    user_regs_struct registers{};
    iovec part = entered ? iovec{&none, sizeof none} : iovec{&registers, sizeof registers};
    const long set = entered ? NT_ARM_SYSTEM_CALL : NT_PRSTATUS;
    if (!entered && ptrace(PTRACE_GETREGSET, child, set, &part) != 0)
        return false;
    registers.regs[0] = static_cast<unsigned long long>(value);
    return ptrace(PTRACE_SETREGSET, child, set, &part) == 0;
}
#else
bool answer(pid_t, bool, long) {
    return false;
}
#endif

} // namespace

SyscallTracer::SyscallTracer(const std::function<int()>& body)
    : child_(startChild(
          [&body] { return ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0 ? body() : kRefused; })) {
    if (waitpid(child_, &status_, 0) == child_ && WIFSTOPPED(status_))
        ptrace(PTRACE_SETOPTIONS, child_, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
}

void SyscallTracer::mark() {
    raise(SIGSTOP);
}

bool SyscallTracer::isAvailable() {
    static const bool available = [] {
        SyscallTracer tracer([] {
            mark();
            const long parent = syscall(SYS_getppid);
            const int code = errno;
            mark();
            return parent == -1 && code == EIO ? EXIT_SUCCESS : EXIT_FAILURE;
        });
        while (const auto call = tracer.next()) {
            if (call->entered && call->number == SYS_getppid)
                tracer.fail(EIO);
        }
        return tracer.finish() == EXIT_SUCCESS;
    }();
    return available;
}

bool SyscallTracer::resume(int signal) {
    return WIFSTOPPED(status_) && ptrace(PTRACE_SYSCALL, child_, nullptr, static_cast<long>(signal)) == 0 &&
           waitpid(child_, &status_, 0) == child_;
}

bool SyscallTracer::atCall() const {
    return WIFSTOPPED(status_) && WSTOPSIG(status_) == kCallStop;
}

std::optional<SyscallTracer::Call> SyscallTracer::next() {
    int signal = 0;
    while (resume(std::exchange(signal, 0))) {
        __ptrace_syscall_info info{};
        if (atCall() && ptrace(PTRACE_GET_SYSCALL_INFO, child_, sizeof info, &info) > 0) {
            const bool entered = info.op == PTRACE_SYSCALL_INFO_ENTRY;
            if (entered)
                number_ = info.entry.nr;
            return Call{number_, entered, !entered && info.exit.is_error != 0};
        }
        if (!WIFSTOPPED(status_) || atCall() || WSTOPSIG(status_) == SIGSTOP)
            break;
        signal = WSTOPSIG(status_);
    }
    return std::nullopt;
}

void SyscallTracer::fail(int code) {
    const bool isMade = number_ == SYS_close;
    if ((isMade || answer(child_, true, 0)) && resume() && atCall())
        answer(child_, false, -code);
}

int SyscallTracer::finish() {
    if (WIFSTOPPED(status_) && ptrace(PTRACE_DETACH, child_, nullptr, nullptr) == 0)
        waitpid(child_, &status_, 0);
    return end();
}

void SyscallTracer::kill() {
    if (WIFSTOPPED(status_) && ::kill(child_, SIGKILL) == 0)
        waitpid(child_, &status_, 0);
}

int SyscallTracer::end() const {
    return WIFEXITED(status_) ? WEXITSTATUS(status_) : -WTERMSIG(status_);
}

} // namespace testsupport
