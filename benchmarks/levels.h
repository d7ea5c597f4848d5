#pragma once

#include <array>
#include <filesystem>
#include <string>

namespace bench {

inline constexpr std::array kGrowth = {1, 10, 100};

/// An installation, a site and a user's directory with some thirty changed settings, on a disk, with
/// `RSR_HOME` and `WDIR` set to them. Deleted at the end.
class Levels {
public:
    /// @param size how many times the usual size the configuration files have; what is added are keys that
    ///             the store does not know.
    /// @param categories how many times the categories of the catalogue stand in it.
    explicit Levels(int size = 1, int categories = 1);
    ~Levels();
    Levels(const Levels&) = delete;
    Levels& operator=(const Levels&) = delete;

    /// The configuration files, from the installation to the user.
    std::array<std::filesystem::path, 3> files() const;
    std::filesystem::path userFile() const { return files().back(); }

    /// Gives each file other bytes of the same meaning, so that nothing that is known of it serves again.
    void renew() const;

private:
    std::filesystem::path root_;
};

std::string readText(const std::filesystem::path& path);

/// "name" for the usual size, "name, 10 times the size" for others.
std::string atSize(const std::string& name, int size);

} // namespace bench
