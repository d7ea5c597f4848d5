// Many processes that save one file at the same time, and others that read it meanwhile.

#include "tests/reliability/savers.h"
#include "tests/support/childprocess.h"

#include <algorithm>
#include <iostream>

namespace {

using namespace saves;
using namespace std::chrono_literals;

constexpr int kReaders = 2;
constexpr int kLoadsASave = 100;

class Writers : public SavedFile {
protected:
    /// Whether the number under each key is one that was saved, and no older than what was seen before.
    static bool isWhole(Saver& saver, std::array<int, kKeys.size()>& seen) {
        bool whole = true;
        for (std::size_t i = 0; i < kKeys.size(); ++i) {
            const int number = numberOf(saver.value(kKeys[i]));
            whole = whole && number >= seen[i];
            seen[i] = number;
        }
        return whole;
    }

    bool hasBothEnds() const {
        const std::string bytes = testsupport::readFile(path());
        return bytes.find("cccc") != std::string::npos && bytes.ends_with(GetParam().end);
    }

    /// Runs one writer a key, each in a process of its own, and the readers beside them.
    void run(int saves, int loads) {
        int waits[2];
        ASSERT_EQ(pipe(waits), 0);
        std::vector<pid_t> processes;
        for (const char* key : kKeys) {
            processes.push_back(testsupport::startChild([&, key] {
                const auto saver = loaded();
                auto longest = 0ns;
                for (int number = 1; number <= saves; ++number) {
                    const auto start = std::chrono::steady_clock::now();
                    const Outcome outcome = saver->save(key, textOf(number));
                    longest =
                        std::max(longest, std::chrono::nanoseconds(std::chrono::steady_clock::now() - start));
                    EXPECT_TRUE(outcome.saved) << outcome.told;
                }
                EXPECT_EQ(write(waits[1], &longest, sizeof longest), static_cast<ssize_t>(sizeof longest));
                return HasFailure() ? EXIT_FAILURE : EXIT_SUCCESS;
            }));
        }
        for (int reader = 0; reader < kReaders; ++reader) {
            processes.push_back(testsupport::startChild([&] {
                std::array<int, kKeys.size()> seen{};
                for (int load = 0; load < loads && !HasFailure(); ++load) {
                    EXPECT_TRUE(isWhole(*loaded(), seen) && hasBothEnds()) << load;
                }
                return HasFailure() ? EXIT_FAILURE : EXIT_SUCCESS;
            }));
        }
        for (const pid_t process : processes)
            EXPECT_EQ(testsupport::endOfChild(process), EXIT_SUCCESS);
        close(waits[1]);
        auto longest = 0ns;
        for (auto wait = 0ns; read(waits[0], &wait, sizeof wait) > 0;)
            longest = std::max(longest, wait);
        close(waits[0]);
        EXPECT_LT(longest, 5s);
        std::cout << GetParam().name << ": " << kKeys.size() * static_cast<std::size_t>(saves) << " saves, "
                  << kReaders * loads << " loads; longest save " << milliseconds(longest) << " ms\n";
    }
};

TEST_P(Writers, LoseNothingAndReadersSeeWholeFilesOnly) {
    reset(0);
    for (const char* key : kKeys)
        EXPECT_TRUE(loaded()->save(key, textOf(0)).saved);
    const int saves = count(8);
    run(saves, saves * kLoadsASave);
    const auto saver = loaded();
    const auto kept = std::count_if(kKeys.begin(), kKeys.end(),
                                    [&](const char* key) { return saver->value(key) == textOf(saves); });
    EXPECT_EQ(kept, static_cast<std::ptrdiff_t>(kKeys.size()));
    std::cout << GetParam().name << ": the last values of " << kept << " writers are there\n";
    expectNothingBeside();
}

INSTANTIATE_TEST_SUITE_P(Saves, Writers, testing::ValuesIn(kKinds), nameOf);

} // namespace
