#pragma once

#include "suite/export.h"

#include <string>

namespace Orv {

namespace DataModel {

/// What the value of a property is.
enum class PropertyType { text, number, length };

} // namespace DataModel

namespace Utils {

/// Makes the name under which a property stands among the attributes of a design object.
class OVSUITE_API CPropertyMangler {
public:
    /// The mangled name is a letter for the type ("T" text, "N" number, "L" length), "_", and the name, in
    /// which each byte other than an ASCII letter, a digit or "_" becomes "%" and two upper-case hexadecimal
    /// digits. Two properties of different name or type never share a mangled name.
    /// @param name    UTF-8; null counts as empty.
    /// @param mangled replaced by the result.
    static void Mangle(const char* name, DataModel::PropertyType type, std::string& mangled);
};

} // namespace Utils

} // namespace Orv
