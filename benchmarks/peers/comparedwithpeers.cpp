// The store beside other libraries on the same work: the same keys and values on the same three levels.

#include "benchmarks/benchmarks.h"
#include "benchmarks/comparison.h"
#include "benchmarks/floors.h"
#include "benchmarks/levels.h"
#include "benchmarks/peers/peer.h"
#include "benchmarks/peers/qsettings.h"
#include "benchmarks/peers/statements.h"
#include "orv/appconfiguration.h"
#include "orv/configurationreport.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>

namespace bench {

namespace {

using Orv::iAppConfiguration;
using Fields = std::array<int, kGraphicsFields>;

// Of a peer's call no longer than what a busy machine lets run without a break.
constexpr std::size_t kReads = 1 << 11;
constexpr int kOtherValue = kSavedValue / 4;
constexpr std::array kIterations = {40, 20, 3}; // at each size of kGrowth

void require(bool isTrue, const std::string& what) {
    if (!isTrue)
        throw std::runtime_error(what);
}

std::unique_ptr<Peer> makeKConfigPeer(const std::filesystem::path& directory) {
    static void* module = dlopen(OV_KCONFIG_PEER, RTLD_NOW | RTLD_LOCAL);
    require(module != nullptr, std::string("the module of KConfig: ") + (module ? "" : dlerror()));
    const auto make = reinterpret_cast<MakePeer>(dlsym(module, kMakePeer));
    require(make != nullptr, "the module of KConfig makes no peer");
    return std::unique_ptr<Peer>(make(directory.c_str()));
}

/// So that whoever looks at its time believes that the file is another.
void renew(const std::filesystem::path& file) {
    static time_t time = 1'000'000'000;
    const timespec times[] = {{++time, 0}, {time, 0}};
    require(utimensat(AT_FDCWD, file.c_str(), times, 0) == 0, "cannot renew " + file.string());
}

double loadAnew(Peer& peer) {
    for (const auto& file : peer.files())
        renew(file);
    return secondsOf([&] { peer.load(); });
}

void requireText(const std::filesystem::path& path, const std::string& text) {
    require(readText(path).find(text) != std::string::npos, path.string() + " does not hold " + text);
}

/// Another text of the same length, by another hand.
void replaceInFile(const std::filesystem::path& path, const std::string& old, const std::string& other) {
    requireText(path, old);
    std::string text = readText(path);
    std::ofstream(path, std::ios::binary) << text.replace(text.find(old), old.size(), other);
}

/// Store and peers with the same levels; whoever is wrong about them does not pass.
struct Setting {
    Levels levels;
    Statements statements;
    std::vector<Statement> keys = knownKeys();
    iAppConfiguration configuration;
    std::vector<std::unique_ptr<Peer>> peers;

    explicit Setting(int size, Installation installation = Installation::complete)
        : statements(stateLevels(levels, installation, size)) {
        const auto directory = levels.userFile().parent_path();
        peers.push_back(makeKConfigPeer(directory / "kconfig"));
        peers.push_back(makeQSettingsPeer(directory / "qsettings"));
        require(configuration.load(), "the store does not load what its peers do");
        checkStore();
        for (const auto& peer : peers) {
            peer->write(statements);
            peer->chooseList(keys);
            checkValues(*peer);
            checkLoad(*peer);
            checkList(*peer);
        }
    }

    /// One statement on each key that the store knows, from whichever level is the first to state it.
    std::vector<Statement> knownKeys() const {
        std::vector<Statement> known;
        for (const auto& level : statements)
            std::ranges::copy_if(level, std::back_inserter(known), [&known](const Statement& statement) {
                return iAppConfiguration::kindOf(statement.key) != 0 &&
                       std::ranges::find(known, statement.key, &Statement::key) == known.end();
            });
        return known;
    }

    /// Those of the kind on whose values all agree: QSettings knows no locks.
    std::vector<std::string> unlockedKeys(std::initializer_list<int> kinds) const {
        std::vector<std::string> found;
        for (const auto& key : keys) {
            iAppConfiguration::Property property(key.key);
            if (std::ranges::find(kinds, iAppConfiguration::kindOf(key.key)) != kinds.end() &&
                configuration.getProperty(property) &&
                std::ranges::find(property.readonly, 1) == property.readonly.end())
                found.push_back(key.key);
        }
        return found;
    }

private:
    std::size_t lockCount() const {
        return static_cast<std::size_t>(std::ranges::count(statements[1], true, &Statement::isLocked));
    }

    void checkStore() const {
        const auto expected = cascade(statements, true);
        require(lockCount() > 0, "nothing is locked");
        for (const auto& [key, isList, values, isLocked] : keys) {
            iAppConfiguration::Property property(key);
            configuration.getProperty(property);
            require(property.values == expected.at(key), "the store is wrong about " + key);
        }
    }

    void checkValues(Peer& peer) const {
        const auto expected = cascade(statements, peer.knowsLocks());
        for (const auto& key : keys) {
            require(peer.values(key.key, key.isList) == expected.at(key.key),
                    peer.name() + " is wrong about " + key.key);
            const bool isLocked = std::ranges::any_of(statements[1], [&](const Statement& statement) {
                return statement.isLocked && statement.key == key.key;
            });
            require(peer.isLocked(key.key) == (isLocked && peer.knowsLocks()),
                    peer.name() + " is wrong about the lock of " + key.key);
        }
    }

    void checkLoad(Peer& peer) const {
        const auto written = std::to_string(kSavedValue);
        const std::string other(written.size(), '1');
        for (const auto& [before, after] : {std::pair(written, other), std::pair(other, written)}) {
            replaceInFile(peer.files()[2], before, after);
            loadAnew(peer);
            require(peer.values(kSavedKey, false).front() == after, peer.name() + " does not load");
        }
    }

    void checkList(Peer& peer) const {
        Listed expected{0, 0, peer.knowsLocks() ? lockCount() : 0};
        const auto values = cascade(statements, peer.knowsLocks());
        for (const auto& key : keys)
            expected.values += values.at(key.key).size();
        require(peer.list() == expected, peer.name() + " does not list everything");
        for (const auto& level : statements)
            expected.statements +=
                static_cast<std::size_t>(std::ranges::count_if(level, [](const Statement& statement) {
                    return iAppConfiguration::kindOf(statement.key) != 0;
                }));
        require(peer.listWithLevels() == expected, peer.name() + " does not list all levels");
    }
};

std::vector<std::string> inRandomOrder(const std::vector<std::string>& keys) {
    std::mt19937 random(20);
    std::uniform_int_distribution<std::size_t> any(0, keys.size() - 1);
    std::vector<std::string> order(kReads);
    for (auto& key : order)
        key = keys[any(random)];
    return order;
}

float valueOf(const iAppConfiguration& configuration, std::string_view key, float) {
    return configuration.getNumber(key);
}

Fields valueOf(const iAppConfiguration& configuration, std::string_view key, const Fields&) {
    Fields fields{};
    configuration.getGraphics(key, fields[0], fields[1], fields[2], fields[3], fields[4], fields[5]);
    return fields;
}

float summand(float value) {
    return value;
}

unsigned summand(const Fields& fields) {
    unsigned sum = 0;
    for (const int field : fields)
        sum += static_cast<unsigned>(field);
    return sum;
}

/// Reads by key, in the store, its peers and a hash table.
template <typename Value, typename Sum>
void readByKey(benchmark::State& state, std::initializer_list<int> kinds, Sum (Peer::*peerSum)()) {
    Setting setting(1);
    const auto keys = setting.unlockedKeys(kinds);
    const auto order = inRandomOrder(keys);
    std::unordered_map<std::string_view, Value> table;
    for (const auto& key : keys)
        table.emplace(key, valueOf(setting.configuration, key, Value{}));
    const auto sumOf = [&order](auto read) {
        Sum sum = 0;
        for (const auto& key : order)
            sum += summand(read(key));
        return sum;
    };
    const auto store = [&] {
        return sumOf([&](const std::string& key) { return valueOf(setting.configuration, key, Value{}); });
    };
    const auto floor = [&] {
        return sumOf([&](const std::string& key) { return table.find(key)->second; });
    };
    require(store() == floor(), "the store and the floor read different values");
    std::vector<Floor> others{
        {"std::unordered_map, same keys", timed([&] { benchmark::DoNotOptimize(floor()); })}};
    for (const auto& peer : setting.peers) {
        peer->chooseReads(order);
        require(((*peer).*peerSum)() == store(), peer->name() + " reads other values");
        others.push_back({peer->name(),
                          timed([&peer, peerSum] { benchmark::DoNotOptimize(((*peer).*peerSum)()); }),
                          std::nullopt, true});
    }
    compare(state, {timed([&] { benchmark::DoNotOptimize(store()); }), static_cast<double>(order.size())},
            others);
}

void readNumbers(benchmark::State& state) {
    readByKey<float>(state, {iAppConfiguration::KindFlag, iAppConfiguration::KindNumber},
                     &Peer::sumOfNumbers);
}

void readGraphics(benchmark::State& state) {
    readByKey<Fields>(state, {iAppConfiguration::KindObject}, &Peer::sumOfGraphics);
}

enum class Files { renewed, asBefore };

/// The peers read their files anew in any case.
void load(benchmark::State& state, int size, Installation installation, Files files) {
    Setting setting(size, installation);
    std::vector<Floor> others{bareParse(setting.levels.files(), std::nullopt)};
    for (const auto& peer : setting.peers)
        others.push_back({peer->name(), [&peer] { return loadAnew(*peer); }, std::nullopt, true});
    const auto store = [&] {
        if (files == Files::renewed)
            setting.levels.renew();
        return secondsOf([&] { setting.configuration.load(); });
    };
    compare(state, {store}, others);
}

/// The store has converted everything when it has loaded; its peers do so at each read.
void loadAndRead(benchmark::State& state) {
    Setting setting(1);
    std::vector<Floor> others;
    for (const auto& peer : setting.peers)
        others.push_back({peer->name(),
                          [&peer] { return loadAnew(*peer) + secondsOf([&] { peer->list(); }); },
                          std::nullopt, true});
    const auto readAll = [&] {
        setting.configuration.load();
        for (const auto& key : setting.keys) {
            iAppConfiguration::Property property(key.key);
            benchmark::DoNotOptimize(setting.configuration.getProperty(property));
        }
    };
    const auto store = [&] {
        setting.levels.renew();
        return secondsOf(readAll);
    };
    compare(state, {store}, others);
}

void saveOneChange(benchmark::State& state, int size) {
    Setting setting(size);
    const auto userFile = setting.levels.userFile();
    const BareWriter writer(userFile, readText(userFile));
    std::vector<Floor> others{
        {"write, fsync, rename, fsync directory", timed([&] { writer.writeAndFlushDirectory(); })}};
    bool isOther = false;
    const auto save = [&] {
        isOther = !isOther;
        setting.configuration.setNumber(kSavedKey, static_cast<float>(isOther ? kOtherValue : kSavedValue));
        setting.configuration.save();
    };
    save();
    requireText(userFile, std::to_string(kOtherValue));
    for (const auto& peer : setting.peers) {
        const auto peerFile = peer->files().back();
        // What it leaves to be flushed would be paid for by whoever flushes next.
        const auto peerSave = [&peer, isOther = false, after = BareWriter(peerFile, {})]() mutable {
            isOther = !isOther;
            const int value = isOther ? kOtherValue : kSavedValue;
            const double seconds = secondsOf([&] { peer->setNumberAndSave(kSavedKey, value); });
            after.flushDirectory();
            return seconds;
        };
        Floor other{peer->name(), peerSave, std::nullopt, true};
        other.run();
        requireText(peerFile, std::to_string(kOtherValue));
        others.push_back(std::move(other));
    }
    compare(state, {timed(save)}, others);
}

void list(benchmark::State& state, int size) {
    Setting setting(size);
    const auto report = [&] {
        benchmark::DoNotOptimize(Orv::reportConfiguration(setting.configuration));
    };
    std::vector<Floor> others{bareParse(setting.levels.files(), std::nullopt)};
    for (const auto& peer : setting.peers) {
        others.push_back({peer->name(), timed([&peer] { benchmark::DoNotOptimize(peer->listWithLevels()); }),
                          std::nullopt, true});
        if (size == 1)
            others.push_back({peer->name() + ", without levels",
                              timed([&peer] { benchmark::DoNotOptimize(peer->list()); }), std::nullopt,
                              true});
    }
    compare(state, {timed(report)}, others);
}

/// Repetitions of a fixed length: what all take together is not what the library adjusts them by.
template <typename Work, typename... Arguments>
void registerWork(const std::string& name, benchmark::IterationCount iterations, Work work,
                  Arguments... arguments) {
    const auto run = [work, arguments...](benchmark::State& state) {
        try {
            work(state, arguments...);
        } catch (const std::exception& failure) {
            state.SkipWithError(failure.what());
        }
    };
    benchmark::RegisterBenchmark(name.c_str(), run)->UseManualTime()->Iterations(iterations);
}

} // namespace

void registerPeers() {
    registerWork("p1 number by key", 40, readNumbers);
    registerWork("p2 graphics by key", 40, readGraphics);
    registerWork("p3 load, files as shipped", kIterations[0], load, 1, Installation::sample, Files::renewed);
    registerWork("p3 load and read every key once", kIterations[0], loadAndRead);
    for (std::size_t i = 0; i < kGrowth.size(); ++i) {
        registerWork(atSize("p3 load", kGrowth[i]), kIterations[i], load, kGrowth[i], Installation::complete,
                     Files::renewed);
        registerWork(atSize("p3 load the same files again", kGrowth[i]), kIterations[i], load, kGrowth[i],
                     Installation::complete, Files::asBefore);
        registerWork(atSize("p4 save one change", kGrowth[i]), kIterations[i], saveOneChange, kGrowth[i]);
        registerWork(atSize("p5 list with origins", kGrowth[i]), kIterations[i], list, kGrowth[i]);
    }
}

} // namespace bench
