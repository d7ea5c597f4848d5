// Processes that are killed while they save: what they said to be saved is there, the file is a whole one,
// and the next save is as good as any.

#include "tests/reliability/savers.h"
#include "tests/support/childprocess.h"
#include "tests/support/syscalltracer.h"

#include <csignal>
#include <iostream>
#include <random>
#include <thread>

namespace {

using namespace saves;
using testsupport::SyscallTracer;

class Kill : public SavedFile {
protected:
    Kill() { EXPECT_EQ(pipe(acknowledged_), 0); }
    ~Kill() override {
        close(acknowledged_[0]);
        close(acknowledged_[1]);
    }

    /// For the process that is killed: saves and says so.
    bool saveAndSay(Saver& saver, int number) const {
        return save(saver, number).saved && write(acknowledged_[1], &number, sizeof number) == sizeof number;
    }

    /// The last number that was said to be saved since the last call; 0 if none was.
    int lastAcknowledged() {
        int number = 0;
        close(acknowledged_[1]);
        while (read(acknowledged_[0], &number, sizeof number) > 0) {
        }
        close(acknowledged_[0]);
        EXPECT_EQ(pipe(acknowledged_), 0);
        return number;
    }

    /// What holds after each kill.
    void checkAfterKill() {
        const int last = lastAcknowledged();
        expectEither(last, last + 1);
        ahead_ += testsupport::readFile(path()) == bytes(last + 1);
        halfway_ += std::distance(std::filesystem::directory_iterator(directory_.path()), {}) > 2;
        ++kills_;
        expectSave(last + 2);
    }

    void print() const {
        std::cout << GetParam().name << ": " << kills_ << " kills, " << halfway_
                  << " with a temporary file left, " << ahead_
                  << " with a file ahead of what was said; longest next save " << milliseconds(longest_)
                  << " ms, " << slow_ << " over 100 ms\n";
    }

private:
    int acknowledged_[2];
    int kills_ = 0;
    int halfway_ = 0;
    int ahead_ = 0;
};

TEST_P(Kill, AtTheBeginningAndTheEndOfEachSystemCall) {
    if (!SyscallTracer::isAvailable())
        GTEST_SKIP() << "this system lets no process trace another one";
    bool ended = false;
    for (int stops = 1; !ended && !HasFailure(); ++stops) {
        SCOPED_TRACE(stops);
        reset(0);
        SyscallTracer process([&] {
            const auto saver = loaded();
            SyscallTracer::mark();
            const bool saved = saveAndSay(*saver, 1);
            SyscallTracer::mark();
            return saved ? EXIT_SUCCESS : EXIT_FAILURE;
        });
        for (int stop = 0; stop < stops && !ended; ++stop)
            ended = !process.next();
        process.kill();
        checkAfterKill();
    }
    print();
}

TEST_P(Kill, AtRandomMoments) {
    const auto seed = std::random_device()();
    std::mt19937 random(seed);
    for (int kills = count(20); kills > 0 && !HasFailure(); --kills) {
        SCOPED_TRACE(seed);
        reset(0);
        const pid_t process = testsupport::startChild([&] {
            const auto saver = loaded();
            int number = 1;
            while (saveAndSay(*saver, number))
                ++number;
            return EXIT_FAILURE;
        });
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 40'000));
        kill(process, SIGKILL);
        EXPECT_EQ(testsupport::endOfChild(process), -SIGKILL);
        checkAfterKill();
    }
    print();
}

INSTANTIATE_TEST_SUITE_P(Saves, Kill, testing::ValuesIn(kKinds), nameOf);

} // namespace
