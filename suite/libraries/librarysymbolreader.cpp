#include "suite/libraries/librarysymbolreader.h"

#include "orv/projectfiledata.h"
#include "platform/asciicase.h"
#include "platform/paths.h"
#include "suite/files/errorlog.h"

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

void LibrarySymbolReader::update() {
    const std::string named = project_.GetCentralLibraryPath(1);
    std::string path = named.empty() ? named : platform::fullPath(named);
    const auto stamp = platform::FileStamp::of(path);
    if (path == path_ && stamp == stamp_ && (stamp_.isSettled() || !stamp_.isOfFile()))
        return;
    path_ = std::move(path);
    stamp_ = stamp;
    if (const auto loaded = library_.load(path_); !loaded && stamp_.isOfFile())
        errorLog().reportOnce(loaded.error());
}

bool PropertyFilter::Counts(const std::string& propertyName) {
    return std::ranges::none_of(kIdentifyingProperties, [&](std::string_view name) {
        return platform::equalsWithoutCase(name, propertyName);
    });
}

} // namespace suite
