#pragma once

#include "dialog/pages/borders/attributes.h"

#include <set>
#include <string>

namespace Orv {
class IPropertyFilter;
class ISymbolReader;
} // namespace Orv

namespace ovsettings {

/// Gathers what border symbols say of their properties.
class SymbolProperties {
public:
    /// @param reader, filter must outlive this object; without a filter all properties count.
    SymbolProperties(Orv::ISymbolReader& reader, Orv::IPropertyFilter* filter)
        : reader_(reader), filter_(filter) {}

    /// @param symbol its name, with its library before the separator if it has one.
    void read(const std::string& symbol);
    /// Of each property that a symbol has, the values that symbols give it, each once.
    const KnownValues& knownValues() const { return known_; }

private:
    Orv::ISymbolReader& reader_;
    Orv::IPropertyFilter* filter_;
    KnownValues known_;
    std::set<Attribute> found_;
};

} // namespace ovsettings
