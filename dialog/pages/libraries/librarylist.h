#pragma once

#include "dialog/pages/libraries/librarytypes.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace NProjectTools {
class CSymbolLibs;
}

namespace ovsettings {

/// A library as the list of the page holds it.
struct LibraryRow {
    std::string alias; ///< differs from those of other rows by more than the case of its letters
    std::string path;  ///< as the user and the project see it; may begin with a soft name
    int type = kReadonly;
};

/// The aliases of a list. Taking many stays linear, however many of them are the same.
class TakenAliases {
public:
    void add(const std::string& alias);
    bool contains(const std::string& alias) const;
    /// Adds the alias or, if it is taken, the first of "ALIAS_1", "ALIAS_2" and so on that is not.
    /// @return what was added.
    std::string addUnique(const std::string& alias);

private:
    std::unordered_set<std::string> names_; ///< in lower case
    /// By alias: the last counter that was tried. No name is ever given back, so that all up to it are taken.
    std::unordered_map<std::string, int> counters_;
};

/// The libraries of another project (.prj) or of an ini file (.ini), as rows to add to a list.
/// @param progress told how many libraries of how many are read; gives the import up by returning false.
/// @return nothing if the file is neither by its ending, or is a project that cannot be opened; no row if the
///         import was given up.
std::optional<std::vector<LibraryRow>>
importLibraries(const std::string& path, const std::function<bool(std::size_t, std::size_t)>& progress);

/// The type that a row is stored with: only the first may be Primary.
int storedType(const LibraryRow& row, bool isFirst);

/// Replaces the project's list.
/// @param projectFilePath full path of the project file; what lies below its directory is stored relative to
///                        it.
void storeLibraries(std::span<const LibraryRow> rows, const std::string& projectFilePath,
                    NProjectTools::CSymbolLibs& libraries);

} // namespace ovsettings
