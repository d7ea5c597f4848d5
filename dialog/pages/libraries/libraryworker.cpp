#include "dialog/pages/libraries/libraryworker.h"

#include "platform/printable.h"
#include "suite/zec.h"

#include <dlfcn.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <sys/resource.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <condition_variable>
#include <csignal>
#include <cstdint>
#include <exception>
#include <mutex>
#include <system_error>
#include <utility>

namespace ovsettings {

namespace {

constexpr std::chrono::milliseconds kPause(250);

/// A look-up that was left behind may outlast the host's use of this library, so its code stays mapped to the
/// end of the process. For the same reason nothing that a look-up uses is ever destroyed at the end.
void keepCodeMapped() {
    static const char anchor = 0;
    Dl_info self{};
    if (dladdr(&anchor, &self) != 0 && self.dli_fname)
        dlopen(self.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
}

int makeBell() {
    const int bell = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (bell < 0)
        throw std::system_error(errno, std::generic_category(), "eventfd");
    return bell;
}

// Fails only if the bell is full. It rings already then, so that the failure needs no handling.
void ring(int bell) {
    const std::uint64_t once = 1;
    [[maybe_unused]] const auto written = write(bell, &once, sizeof once);
}

/// Fails only if the bell is silent already.
void silence(int bell) {
    std::uint64_t times = 0;
    [[maybe_unused]] const auto got = read(bell, &times, sizeof times);
}

/// The calling thread gives way to every other. Not by the scheduler's idle class: on a busy machine, a
/// thread of it may keep the lock that it shares with the dialog for as long as the machine is busy.
void takeLowestPriority() {
    constexpr int kNicest = 19;
    setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), kNicest);
}

/// A thread that handles no signals: those of the process are the host's.
std::thread startThread(std::function<void()> work) {
    sigset_t all, before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    try {
        std::thread thread(std::move(work));
        pthread_sigmask(SIG_SETMASK, &before, nullptr);
        return thread;
    } catch (...) {
        pthread_sigmask(SIG_SETMASK, &before, nullptr);
        throw;
    }
}

/// How many look-ups are under way in the process, those that were left behind included. Beyond the limit
/// none is begun, so that a network directory that hangs does not eat up the threads of the host.
constexpr int kMostLookUps = 16;
std::atomic<int>& lookUps() {
    static auto& count = *new std::atomic<int>(0);
    return count;
}

LibraryFindings unrecognised(const LibraryQuestion& question) {
    return {question, question.path, {question.selected, {}, {}, false}, {}};
}

std::string aliasOf(std::string location) {
    ZECRemoveLastSlash(location);
    std::string alias = ZECReadAlias(location);
    return alias.empty() ? ZECFindAlias(location) : alias;
}

LibraryFindings findingsOf(const LibraryQuestion& question) {
    LibraryFindings findings = unrecognised(question);
    try {
        findings.location = libraryLocation(question.path, question.base);
        findings.recognition = recogniseLibrary(findings.location, question.selected);
        if (findings.recognition.recognised && question.what == LookUp::stateAndAlias)
            findings.alias = aliasOf(findings.location);
    } catch (const std::exception& error) {
        // The dialog needs an answer; what can't be looked up is not recognised.
        qWarning("%s", platform::printable(question.path + ": " + error.what()).c_str());
    }
    return findings;
}

} // namespace

/// What the user-interface thread, the worker and the look-ups share; it lives as long as the last of them.
struct LibraryWorker::Exchange {
    std::mutex mutex;
    std::condition_variable changed;
    bool stop = false;
    // Questions are numbered from 1.
    unsigned long asked = 0;
    LibraryQuestion question;
    unsigned long answered = 0;
    std::optional<LibraryFindings> findings;
};

LibraryWorker::LibraryWorker(std::function<void()> onFindings)
    : exchange_(std::make_shared<Exchange>()),
      bell_(makeBell()),
      ringing_(bell_.get(), QSocketNotifier::Read) {
    keepCodeMapped();
    QObject::connect(&ringing_, &QSocketNotifier::activated, &ringing_,
                     [bell = bell_.get(), onFindings = std::move(onFindings)] {
                         silence(bell);
                         onFindings();
                     });
    thread_ = startThread([exchange = exchange_, bell = bell_.get()] { run(exchange, bell); });
}

LibraryWorker::~LibraryWorker() {
    {
        const std::lock_guard lock(exchange_->mutex);
        exchange_->stop = true;
    }
    exchange_->changed.notify_all();
    thread_.join();
}

void LibraryWorker::ask(LibraryQuestion question) {
    {
        const std::lock_guard lock(exchange_->mutex);
        exchange_->question = std::move(question);
        exchange_->findings.reset();
        ++exchange_->asked;
    }
    exchange_->changed.notify_all();
}

std::optional<LibraryFindings> LibraryWorker::takeFindings() {
    const std::lock_guard lock(exchange_->mutex);
    if (exchange_->answered != exchange_->asked)
        return std::nullopt;
    return std::exchange(exchange_->findings, std::nullopt);
}

bool LibraryWorker::waitForFindings(std::chrono::milliseconds patience) {
    std::unique_lock lock(exchange_->mutex);
    return exchange_->changed.wait_for(lock, patience,
                                       [this] { return exchange_->answered == exchange_->asked; });
}

/// The worker itself only waits, at the usual priority: so nobody waits long for its end.
void LibraryWorker::run(const std::shared_ptr<Exchange>& exchange, int bell) {
    unsigned long seen = 0;
    std::unique_lock lock(exchange->mutex);
    const auto stoppedOrAsked = [&] {
        return exchange->stop || exchange->asked != seen;
    };
    const auto stoppedOrAnswered = [&] {
        return exchange->stop || exchange->answered == seen;
    };
    while (!exchange->stop) {
        if (!exchange->changed.wait_for(lock, kPause, stoppedOrAsked))
            continue;
        if (exchange->stop)
            break;
        seen = exchange->asked;
        startLookUp(exchange, seen, exchange->question);
        // A look-up gets this time before a newer question takes its place, which bounds how often one is
        // left behind while somebody types.
        exchange->changed.wait_for(lock, kPause, stoppedOrAnswered);
        exchange->changed.wait(lock, [&] { return stoppedOrAnswered() || stoppedOrAsked(); });
        if (!exchange->stop && exchange->answered == seen)
            ring(bell);
    }
}

/// Where no thread is to be had, the location counts as not recognised: the user goes on without a verdict.
void LibraryWorker::startLookUp(const std::shared_ptr<Exchange>& exchange, unsigned long number,
                                const LibraryQuestion& question) {
    const auto answer = [exchange, number](LibraryFindings findings) {
        if (number != exchange->asked)
            return;
        exchange->findings = std::move(findings);
        exchange->answered = number;
        exchange->changed.notify_all();
    };
    if (lookUps().fetch_add(1) < kMostLookUps) {
        try {
            startThread([exchange, question, answer] {
                takeLowestPriority();
                LibraryFindings findings = findingsOf(question);
                lookUps().fetch_sub(1);
                const std::lock_guard lock(exchange->mutex);
                answer(std::move(findings));
            }).detach();
            return;
        } catch (const std::exception& error) {
            qWarning("%s", platform::printable(question.path + ": " + error.what()).c_str());
        }
    }
    lookUps().fetch_sub(1);
    answer(unrecognised(question));
}

} // namespace ovsettings
