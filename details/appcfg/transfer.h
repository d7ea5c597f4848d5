#pragma once

#include "details/appcfg/store.h"
#include "suite/configuration.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace Orv {

/// Reads the configuration of one working directory into the store.
///
/// Directories are read from the least to the most specific one, so a lock of the installation is in force
/// before the user's value is seen. What any but the most specific directory says becomes the default as
/// well.
class ConfigurationReader {
public:
    /// @param place the directory's place in the store's list.
    ConfigurationReader(iAppConfiguration::Impl& store, const IOvConfiguration& configuration,
                        std::size_t place);

    void readAll();

private:
    void readList(Record& record);
    bool readUserList(Record& record) const;
    void readInheritedList(Record& record) const;
    void mergeLocks(Record& record) const;
    void readGroup(Record& record);

    void take(Record& record, std::size_t field, const std::string& text) const;
    void takeList(Record& record) const;
    void noteLocks(Record& record) const;

    iAppConfiguration::Impl& store_;
    const IOvConfiguration& configuration_;
    std::size_t place_;
    bool mostSpecific_;

    // What the configuration answered last, kept for the memory they hold.
    std::vector<std::string> values_;
    std::vector<std::uint8_t> locks_;
    std::map<std::string, std::string> attributes_;
    std::map<std::string, int> attributeLocks_;
};

/// Writes the store into a configuration: what differs from the defaults is stored, the rest removed, unless
/// the store has not seen what the configuration holds.
void writeAll(iAppConfiguration::Impl& store, IOvConfiguration& configuration);

} // namespace Orv
