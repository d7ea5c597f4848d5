#pragma once

#include "platform/result.h"
#include "suite/export.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace platform {
class ProfileView;
}

namespace suite {

/// The types of partitions, with the numbers of the library manager.
enum class PartitionType : int { cells = 0, pdbs = 7, symbols = 13 };

struct Partition {
    std::string name;
    std::string location; ///< as the index has it, from the index's directory
};

struct Scheme {
    std::string name;
    int type = 0; ///< lists of a scheme of another type than 0 may be edited in a design
};

/// The kinds of special symbols, in the order of the chooser's data source.
enum class SpecialSymbolKind {
    port,
    onSheet,
    offSheet,
    ripperBusNet,
    ripperBusBus,
    power,
    ground,
    border,
};

/// The index of a central library, read once. Everything is in the order of the file; names compare as those
/// of every file of ini kind do.
class OVSUITE_API CentralLibrary {
public:
    /// Reads an index. After an error the library is empty.
    platform::Result<> load(const std::string& indexPath);
    /// Reads the text of an index. @return false, with the library empty, if it is none.
    bool parse(std::string_view text);

    /// The directory of the index, from the root.
    const std::string& directory() const { return directory_; }
    const std::vector<Partition>& partitions(PartitionType type) const;
    const Partition* findPartition(PartitionType type, std::string_view name) const;
    /// Where a partition lies, from the root.
    std::string fullPath(const Partition& partition) const;
    const std::vector<Scheme>& schemes() const { return schemes_; }
    /// The partition names of a scheme's list, as the index has them; also names of partitions that there are
    /// not.
    std::vector<std::string> schemeList(std::string_view scheme, PartitionType type) const;
    const std::vector<std::string>& specialSymbols(SpecialSymbolKind kind) const;

private:
    void readPartitions(const platform::ProfileView& content);
    void readSchemes(const platform::ProfileView& content);

    std::string directory_;
    std::map<PartitionType, std::vector<Partition>> partitions_;
    std::map<std::pair<PartitionType, std::string>, std::size_t> index_; ///< by type and name in lower case
    std::vector<Scheme> schemes_;
    std::map<std::pair<std::string, PartitionType>, std::vector<std::string>> lists_; ///< names in lower case
    std::map<SpecialSymbolKind, std::vector<std::string>> special_;
};

/// A symbol of a central library, as its file tells of it.
struct Symbol {
    std::string name;
    std::string partition;
    std::string description;
    std::size_t pins = 0;
    std::vector<std::pair<std::string, std::string>> properties; ///< name and value, in the file's order
};

/// Of the file of a symbol in its partition's directory, "NAME.sym".
inline constexpr std::string_view kSymbolExtension = ".sym";

/// Reads the symbol "PARTITION:NAME" of a library. @return nothing if there is none or it cannot be read.
OVSUITE_API std::optional<Symbol> readSymbol(const CentralLibrary& library, std::string_view partition,
                                             std::string_view name);

/// The names of the symbols in a partition's directory, in alphabetical order.
OVSUITE_API std::vector<std::string> symbolNames(const CentralLibrary& library, const Partition& partition);

} // namespace suite
