#pragma once

#include "benchmarks/comparison.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string>

namespace bench {

/// Reads and parses the files of three levels and looks at nothing in them.
Floor bareParse(const std::array<std::filesystem::path, 3>& files, std::optional<double> target);

/// Replaces a file in the safe way and does nothing else.
class BareWriter {
public:
    /// Writes the bytes to a file of its own in the directory of the neighbour.
    BareWriter(const std::filesystem::path& neighbour, std::string bytes);

    void write() const;
    void flushDirectory() const;
    void writeAndFlushDirectory() const;

private:
    std::string directory_;
    std::string path_;
    std::string temporary_;
    std::string bytes_;
};

} // namespace bench
