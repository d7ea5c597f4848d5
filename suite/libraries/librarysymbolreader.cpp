#include "suite/libraries/librarysymbolreader.h"

#include "orv/projectfiledata.h"
#include "platform/asciicase.h"
#include "platform/paths.h"
#include "suite/files/projectlog.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace suite {

namespace {

constexpr std::array<std::string_view, 5> kIdentifyingProperties{
    "REFDES", "PART_NUMBER", "PARTITION", "NAME", "DESCRIPTION",
};

} // namespace

std::vector<std::pair<std::string, std::string>>
LibrarySymbolReader::GetProperties(const std::string& library, const std::string& name) {
    update();
    if (!library.empty()) {
        const auto symbol = readSymbol(library_, library, name);
        return symbol ? symbol->properties : decltype(symbol->properties){};
    }
    // In its exact spelling alone: a look without case would read the directory of every partition.
    for (const Partition& partition : library_.partitions(PartitionType::symbols)) {
        std::error_code missing;
        if (!std::filesystem::exists(
                platform::MakeFilePath(library_.fullPath(partition), name).append(kSymbolExtension), missing))
            continue;
        if (auto symbol = readSymbol(library_, partition.name, name))
            return std::move(symbol->properties);
    }
    return {};
}

LibrarySymbolReader::FileState LibrarySymbolReader::stateOf(const std::string& path) {
    struct stat status;
    if (path.empty() || stat(path.c_str(), &status) != 0)
        return {};
    return {static_cast<long long>(status.st_dev), static_cast<long long>(status.st_ino),
            static_cast<long long>(status.st_size), static_cast<long long>(status.st_mtim.tv_sec),
            static_cast<long long>(status.st_mtim.tv_nsec)};
}

void LibrarySymbolReader::update() {
    const std::string named = project_.GetCentralLibraryPath(1);
    std::string path = named.empty() ? named : platform::fullPath(named);
    FileState state = stateOf(path);
    if (path == path_ && state == state_)
        return;
    path_ = std::move(path);
    state_ = std::move(state);
    const auto error = library_.load(path_);
    if (error && !state_.empty())
        projectLog().report(*error);
}

bool PropertyFilter::Counts(const std::string& propertyName) {
    return std::ranges::none_of(kIdentifyingProperties, [&](std::string_view name) {
        return platform::equalsWithoutCase(name, propertyName);
    });
}

} // namespace suite
