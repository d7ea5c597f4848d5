#pragma once

#include "orv/projectfiledata.h"

#include <string>
#include <vector>

namespace Orv {

/// The special components file of a project, held parsed: the symbols that stand for ports, connectors
/// between sheets, supplies, grounds and rippers. `pinComponents` of the project's record is one. The order
/// of the operations is part of the binary contract.
class OVSETTINGS_API ISpecialComponents : public IProjectFileConsumer {
public:
    static constexpr int kCategories = 13;

    /// Writes all categories to a file; what else the file holds stays. A failure leaves the old file whole
    /// and is told to the host. @param path full path, UTF-8.
    virtual void Save(const std::string& path) = 0;
    /// The symbol names of a category, in order, to be read and changed in place; a change reaches the file
    /// with Save.
    /// @param index 0 port in, 1 port out, 2 port bi, 3 port tri, 4 port analog, 5 port OCL, 6 port OEM,
    ///              7 on sheet, 8 off sheet, 9 power, 10 ground, 11 ripper bus-net, 12 ripper bus-bus; any
    ///              other one gives a list that is nobody's and is not saved.
    virtual std::vector<std::string>& GetCategory(int index) = 0;
    /// Why the last Save failed, as one line with path and cause, UTF-8; empty if it worked. The page that
    /// saved shows it and keeps its edits. An object that does not override it says that every Save works.
    virtual std::string GetSaveError() { return {}; }

protected:
    ~ISpecialComponents() = default;
};

} // namespace Orv
