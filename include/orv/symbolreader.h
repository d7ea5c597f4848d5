#pragma once

#include "ovsettings/export.h"

#include <string>
#include <utility>
#include <vector>

namespace Orv {

/// Separates the library and the name of a symbol: "borders:A4L".
inline constexpr char kSymbolSeparator = ':';

/// Answers which properties a library symbol has. The order of the operations is part of the binary contract.
class OVSETTINGS_API ISymbolReader {
public:
    /// @param library the part of the symbol's name before the separator; empty if there is none.
    /// @param name    the part behind it.
    /// @return name and value of each property, in the symbol's order, UTF-8; empty if there is no such
    ///         symbol. A value that begins with "@" is filled in by the editor.
    virtual std::vector<std::pair<std::string, std::string>> GetProperties(const std::string& library,
                                                                           const std::string& name) = 0;

protected:
    ~ISymbolReader() = default;
};

/// Says which properties of a symbol count as properties of a border.
class OVSETTINGS_API IPropertyFilter {
public:
    virtual bool Counts(const std::string& propertyName) = 0;

protected:
    ~IPropertyFilter() = default;
};

} // namespace Orv
