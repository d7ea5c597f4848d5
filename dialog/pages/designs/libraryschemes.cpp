#include "dialog/pages/designs/libraryschemes.h"

#include "platform/paths.h"

#include <utility>

namespace ovsettings {

std::string relativeTo(const std::string& base, const std::string& path) {
    std::size_t begin = 0;
    // The separators before all names are the root, which unrelated paths share too: without it such a path
    // would lead nowhere.
    bool isNamed = false;
    for (std::size_t at = 0; at < base.size() && at < path.size(); ++at) {
        const bool bothSeparate = platform::isSeparator(base[at]) && platform::isSeparator(path[at]);
        if (!bothSeparate && base[at] != path[at])
            break;
        if (!bothSeparate)
            isNamed = true;
        else if (isNamed)
            begin = at + 1;
    }
    return path.substr(begin);
}

LibraryPartitions::LibraryPartitions(const std::string& libraryPath) : path_(libraryPath), server_(path_) {
    server_.Init();
    server_.Load(path_, 1);
}

CLibSchemePartition LibraryPartitions::partitionsOf(PartitionKind kind) const {
    CLibSchemePartition partitions(server_);
    partitions.InitPartitionType(static_cast<int>(kind));
    return partitions;
}

std::vector<std::string> LibraryPartitions::all(PartitionKind kind) const {
    std::vector<std::string> names;
    partitionsOf(kind).GetAllPartitions(names, 0);
    return shown(kind, std::move(names));
}

std::vector<std::string> LibraryPartitions::ofScheme(PartitionKind kind, const std::string& scheme) const {
    if (scheme == kDefaultScheme)
        return all(kind);
    std::vector<std::string> names;
    partitionsOf(kind).GetSchemePartitionListByType(scheme, names);
    return shown(kind, std::move(names));
}

void LibraryPartitions::schemes(std::vector<std::string>& names, std::vector<int>& types) const {
    partitionsOf(PartitionKind::symbols).GetSchemes(names, types);
}

std::vector<std::string> LibraryPartitions::shown(PartitionKind kind, std::vector<std::string> names) const {
    if (kind == PartitionKind::symbols)
        return names;
    const CLibSchemePartition partitions = partitionsOf(kind);
    for (std::string& name : names) {
        std::string full;
        partitions.GetFullPartitionName(name, full);
        name = relativeTo(path_, full);
    }
    return names;
}

} // namespace ovsettings
