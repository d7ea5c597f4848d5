#pragma once

#include "dialog/pages/libraries/libraryrecognition.h"
#include "platform/descriptor.h"

#include <QtCore/QSocketNotifier>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>

namespace ovsettings {

/// What of a location is asked for.
enum class LookUp {
    state,        ///< what it is
    stateAndAlias ///< and the alias that it brings
};

/// A question to the worker, by value: the worker sees no widget.
struct LibraryQuestion {
    std::string path; ///< see plainPath
    std::string base; ///< where a relative path begins
    LibraryType selected = LibraryType::kReadonly;
    LookUp what = LookUp::stateAndAlias;
};

/// What the worker found for the last question.
struct LibraryFindings {
    LibraryQuestion question;
    std::string location; ///< that the path stands for; the path itself if it was not looked up
    Recognition recognition;
    std::string alias; ///< that the library or the environment gives; may be empty
};

/// The thread beside the library dialog that looks up what its path leads to, one question at a time. A
/// newer question takes the place of one that is still looked up.
///
/// A look-up may hang, on a server that does not answer or a network directory. So each one runs on a thread
/// of its own that owns all it uses; the worker only waits for it, and leaves it behind when it is stopped or
/// asked something newer.
class LibraryWorker {
public:
    /// @param onFindings called on the thread of the construction once there are findings to be taken. Throws
    ///                   std::system_error if the system has no thread or descriptor left.
    explicit LibraryWorker(std::function<void()> onFindings);
    /// Stops the thread and waits for it; not for a look-up.
    ~LibraryWorker();
    LibraryWorker(const LibraryWorker&) = delete;
    LibraryWorker& operator=(const LibraryWorker&) = delete;

    void ask(LibraryQuestion question);
    /// The answer to the last question, once; nothing before there is one.
    std::optional<LibraryFindings> takeFindings();
    /// Waits for that answer. @return false if it has not come by then.
    bool waitForFindings(std::chrono::milliseconds patience);

private:
    struct Exchange;

    static void run(const std::shared_ptr<Exchange>& exchange, int bell);
    /// Call it with the lock of the exchange.
    static void startLookUp(const std::shared_ptr<Exchange>& exchange, unsigned long number,
                            const LibraryQuestion& question);

    std::shared_ptr<Exchange> exchange_;
    platform::Descriptor bell_; ///< what the thread rings when there are findings
    QSocketNotifier ringing_;
    std::thread thread_;
};

} // namespace ovsettings
