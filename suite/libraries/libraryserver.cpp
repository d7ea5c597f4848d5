#include "suite/libraryserver.h"

#include "platform/paths.h"
#include "suite/libraries/centrallibrary.h"

#include <algorithm>
#include <array>

struct CLibServer::Impl {
    std::string path;
    suite::CentralLibrary library;
    platform::RememberedDirectories directories;
};

CLibServer::CLibServer(const std::string& libraryPath) : impl_(std::make_unique<Impl>()) {
    impl_->path = libraryPath;
}

CLibServer::~CLibServer() = default;

bool CLibServer::Init() {
    return platform::isFile(platform::fullPath(impl_->path));
}

bool CLibServer::Load(const std::string& libraryPath, int) {
    impl_->path = libraryPath;
    return static_cast<bool>(impl_->library.load(libraryPath));
}

namespace {

constexpr std::array kTypes{suite::PartitionType::cells, suite::PartitionType::pdbs,
                            suite::PartitionType::symbols};

std::optional<suite::PartitionType> typeOf(int number) {
    const auto type = static_cast<suite::PartitionType>(number);
    return std::ranges::find(kTypes, type) != kTypes.end() ? std::optional(type) : std::nullopt;
}

} // namespace

bool CLibSchemePartition::InitPartitionType(int type) {
    type_ = type;
    return typeOf(type).has_value();
}

bool CLibSchemePartition::GetSchemes(std::vector<std::string>& names, std::vector<int>& types) const {
    for (const suite::Scheme& scheme : server_.impl_->library.schemes()) {
        names.push_back(scheme.name);
        types.push_back(scheme.type);
    }
    return true;
}

bool CLibSchemePartition::GetAllPartitions(std::vector<std::string>& names, int) const {
    const auto type = typeOf(type_);
    if (!type)
        return false;
    for (const suite::Partition& partition : server_.impl_->library.partitions(*type))
        names.push_back(partition.name);
    return true;
}

bool CLibSchemePartition::GetSchemePartitionListByType(const std::string& scheme,
                                                       std::vector<std::string>& names) const {
    const suite::CentralLibrary& library = server_.impl_->library;
    const auto type = typeOf(type_);
    if (!type ||
        std::ranges::find(library.schemes(), scheme, &suite::Scheme::name) == library.schemes().end())
        return false;
    for (std::string& name : library.schemeList(scheme, *type)) {
        if (library.findPartition(*type, name))
            names.push_back(std::move(name));
    }
    return true;
}

bool CLibSchemePartition::GetFullPartitionName(const std::string& name, std::string& fullName) const {
    const auto type = typeOf(type_);
    const suite::Partition* partition = type ? server_.impl_->library.findPartition(*type, name) : nullptr;
    if (!partition)
        return false;
    const platform::RememberedDirectories::Use use(server_.impl_->directories);
    fullName = server_.impl_->library.fullPath(*partition);
    return true;
}
