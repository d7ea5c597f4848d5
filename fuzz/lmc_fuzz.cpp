// The reader of the index of a central library.

#include "fuzz/support.h"
#include "platform/asciicase.h"
#include "platform/profiledocument.h"
#include "suite/files/numberedlist.h"
#include "suite/libraries/centrallibrary.h"

using fuzz::require;
using suite::CentralLibrary;
using suite::PartitionType;

namespace {

struct TypeName {
    PartitionType type;
    const char* name;
};
constexpr TypeName kTypes[] = {
    {PartitionType::symbols, "Symbols"}, {PartitionType::pdbs, "PDBs"}, {PartitionType::cells, "Cells"}};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::textOf(data, size);
    CentralLibrary library;
    const bool isIndex = library.parse(text);
    require(isIndex || library.schemes().empty());
    // The reader for files that are changed says the same.
    const platform::ProfileDocument document(text);
    const auto& [type, name] = kTypes[size % std::size(kTypes)];
    const std::string section = std::string("Partitions.") + name;
    require(library.partitions(type).size() == document.keys(section).size());
    for (const suite::Partition& partition : library.partitions(type)) {
        require(library.findPartition(type, platform::inUpperCase(partition.name)) == &partition);
        require(partition.location == document.value(section, partition.name));
    }
    for (const suite::Scheme& scheme : library.schemes())
        require(library.schemeList(scheme.name, type) ==
                suite::readList(document, "Scheme " + scheme.name, name));
    require(library.specialSymbols(suite::SpecialSymbolKind::power) ==
            suite::readList(document, "SpecialSymbols.Power", "Symbol"));
    return 0;
}
