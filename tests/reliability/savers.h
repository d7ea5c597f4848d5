#pragma once

#include "tests/support/testsupport.h"

#include <array>
#include <chrono>
#include <memory>

namespace saves {

struct Outcome {
    bool saved;
    std::string told; ///< all complaints
};

/// One writer of the product on one file.
class Saver {
public:
    virtual ~Saver() = default;
    virtual bool load() = 0;
    virtual std::string value(const std::string& key) = 0;
    /// Changes one key and saves.
    virtual Outcome save(const std::string& key, const std::string& value) = 0;
};

struct Kind {
    const char* name;
    const char* fileName;
    const char* start; ///< the file before all saves is this, a long comment, and
    const char* end;
    std::unique_ptr<Saver> (*make)(const std::string& path);
};

/// Texts of the configuration; the other files take any key. One writer each.
constexpr std::array kKeys{"MRU_SCHEMA",
                           "PRINTDEVICENAME",
                           "TIPOFTHEDAYTIMESTAMP",
                           "ORV_SIMULATOR_EXECUTABLE",
                           "ORV_ENABLE_EXTERNAL_EDITOR",
                           "ORV_EXTERNAL_EDITOR_EXECUTABLE",
                           "LANGUAGE",
                           "MRU_SETTINGS"};

/// The values that are saved: each of its own, every other one longer than a page of memory.
std::string textOf(int number);
/// The number of such a text; -1 for any other.
int numberOf(const std::string& text);

/// How long to go on: OV_RELIABILITY_COUNT, or `shortCount` where that is not set.
int count(int shortCount);
bool isLongRun();

/// A file that is reached through a symbolic link from another directory and has rights of its own, and what
/// is expected of it.
class SavedFile : public testing::TestWithParam<Kind> {
protected:
    SavedFile();

    std::filesystem::path path() const { return directory_ / GetParam().fileName; }
    std::filesystem::path lockPath() const {
        return directory_ / (std::string(".") + GetParam().fileName + ".lock");
    }
    /// All the bytes of the file once a number is saved under the first key.
    std::string bytes(int number) const;
    /// The file and nothing else, with that number.
    void reset(int number) const;

    std::unique_ptr<Saver> loaded() const;
    static Outcome save(Saver& saver, int number) { return saver.save(kKeys.front(), textOf(number)); }

    /// That the file is a whole one of either number; both names and its rights are as they were.
    void expectEither(int number, int other) const;
    /// That nothing stands beside the file but its lock.
    void expectNothingBeside() const;
    /// That this save works at once and leaves nothing beside the file.
    void expectSave(int number);

    testsupport::Installation installation_;
    testsupport::TemporaryDirectory directory_;
    std::chrono::steady_clock::duration longest_{}; ///< of the saves that were expected
    int slow_ = 0;                                  ///< how many of them took more than 100 ms

private:
    std::filesystem::path link() const { return installation_.user() / GetParam().fileName; }

    std::string sample_;
};

/// As a number of milliseconds.
double milliseconds(std::chrono::steady_clock::duration duration);

extern const std::array<Kind, 3> kKinds;
std::string nameOf(const testing::TestParamInfo<Kind>& info);

} // namespace saves
