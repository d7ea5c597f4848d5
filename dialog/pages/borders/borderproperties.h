#pragma once

#include "dialog/pages/borders/attributes.h"
#include "orv/bordersymbols.h"

#include <vector>

namespace ovsettings {

/// What the user has made of the properties of border symbols, until it is stored. It holds the changes
/// alone, since the file object may be read again meanwhile.
class BorderProperties {
public:
    using Properties = std::vector<Orv::IBorderSymbols::Property>;

    /// The properties with the changes.
    Properties laidOver(Properties stored) const;
    /// Takes over an edited list. It replaces and adds; a property that was taken out of the list keeps its
    /// value, as users know the dialog. @return whether that changes anything.
    bool take(const Properties& stored, const Attributes& edited);
    void clear() { changes_.clear(); }

private:
    Attributes changes_;
};

} // namespace ovsettings
