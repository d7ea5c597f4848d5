#pragma once

#include "suite/libraryserver.h"

#include <string>
#include <vector>

namespace ovsettings {

/// Schemes by their stored names.
inline constexpr char kDefaultScheme[] = "(Default)";
inline constexpr char kLocalScheme[] = "{Local to Project}";

/// The types of partitions, by the library manager's numbers.
enum class PartitionKind : int { third = 0, pdb = 7, symbols = 13 };

/// Cuts off what a path has in common with another one, up to the last common separator of either kind. The
/// root alone is nothing in common: the path stays whole.
std::string relativeTo(const std::string& base, const std::string& path);

/// The partitions of a central library as a design's page shows them: symbol partitions by name, the others
/// by their path from the library, because the project keeps them so. Opened for one use; a library that is
/// not there has nothing.
class LibraryPartitions {
public:
    explicit LibraryPartitions(const std::string& libraryPath);

    std::vector<std::string> all(PartitionKind kind) const;
    /// Those of a scheme; of the default scheme all.
    std::vector<std::string> ofScheme(PartitionKind kind, const std::string& scheme) const;
    void schemes(std::vector<std::string>& names, std::vector<int>& types) const;

private:
    CLibSchemePartition partitionsOf(PartitionKind kind) const;
    std::vector<std::string> shown(PartitionKind kind, std::vector<std::string> names) const;

    std::string path_;
    CLibServer server_;
};

} // namespace ovsettings
