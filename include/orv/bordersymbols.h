#pragma once

#include "orv/projectfiledata.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace Orv {

/// The border symbols file of a project, held parsed. `borderSymbols` of the project's record is one. The
/// order of the operations is part of the binary contract.
class OVSETTINGS_API IBorderSymbols : public IProjectFileConsumer {
public:
    /// From the key of a sheet size, "A4SHEETL" or "34x22SHEET" for example, to the symbol of the next
    /// sheets; from that key with "1" behind it to the symbol of the first sheet.
    using Table = std::map<std::string, std::string>;
    /// Name and value of a border property.
    using Property = std::pair<std::string, std::string>;

    /// Writes table and properties to a file; what else the file holds stays. A failure leaves the old file
    /// whole and is told to the host. @param path full path, UTF-8.
    virtual void Save(const std::string& path) = 0;
    /// To be read and changed in place; a change reaches the file with Save.
    virtual Table& GetTable() = 0;
    /// The values that are given to properties of border symbols, in the order of the file, to be read and
    /// changed in place.
    virtual std::vector<Property>& GetProperties() = 0;
    /// The names of the properties that may be given a value, in the order in which they are offered.
    virtual std::vector<std::string> GetPropertyNames() = 0;
    /// Why the last Save failed, as one line with path and cause, UTF-8; empty if it worked. The page that
    /// saved shows it and keeps its edits. An object that does not override it says that every Save works.
    virtual std::string GetSaveError() { return {}; }

protected:
    ~IBorderSymbols() = default;
};

} // namespace Orv
