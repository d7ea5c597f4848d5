#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace bench {

/// One level's word on one key.
struct Statement {
    std::string key;
    bool isList = false; ///< of any number of values; of exactly one if not
    std::vector<std::string> values;
    bool isLocked = false; ///< for the levels after it
};

/// What the three levels say, from the installation to the user.
using Statements = std::array<std::vector<Statement>, 3>;

/// What a list of all keys has found.
struct Listed {
    std::size_t values = 0;     ///< texts in force
    std::size_t statements = 0; ///< of all levels, on the keys that are listed
    std::size_t locks = 0;

    bool operator==(const Listed&) const = default;
};

/// Another library with a cascade of three files of its own format. Key names are turned into the library's
/// own kind of text ahead of the work.
class Peer {
public:
    virtual ~Peer() = default;

    virtual std::string name() const = 0;
    virtual bool knowsLocks() const = 0;
    /// From the installation to the user.
    virtual std::array<std::filesystem::path, 3> files() const = 0;

    /// Writes the three files by the library's own means, and loads them.
    virtual void write(const Statements& statements) = 0;
    /// Reads and parses all files, provided that their times have changed.
    virtual void load() = 0;
    virtual void setNumberAndSave(const std::string& key, int value) = 0;

    virtual std::vector<std::string> values(const std::string& key, bool isList) = 0;
    virtual bool isLocked(const std::string& key) = 0;

    /// Names the keys of the next two, in the order in which they are read.
    virtual void chooseReads(const std::vector<std::string>& keys) = 0;
    virtual float sumOfNumbers() = 0;
    /// Of the six fields of each, converted; colours as packed as the store's.
    virtual unsigned sumOfGraphics() = 0;

    /// Names the keys of the next two, by the statements on them.
    virtual void chooseList(const std::vector<Statement>& keys) = 0;
    /// Each key with its value in force, and whether it is locked.
    virtual Listed list() = 0;
    /// The same, and what each level says.
    virtual Listed listWithLevels() = 0;
};

/// The name of the function of a module that makes its peer, with files in that directory. The caller owns
/// it.
inline constexpr const char* kMakePeer = "makePeer";
using MakePeer = Peer* (*)(const char* directory);

/// Red in the low byte, as the store packs it, of 0xRRGGBB.
constexpr unsigned packedColor(unsigned rgb) {
    return (rgb & 0xff0000) >> 16 | (rgb & 0xff00) | (rgb & 0xff) << 16;
}

inline constexpr int kGraphicsFields = 6;
inline constexpr int kColorField = 2;

} // namespace bench
