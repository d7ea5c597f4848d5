#pragma once

#include <string>

namespace iKDS {

/// What an object of a design is, as the byte that the database keeps with it.
enum class ObjectKind : unsigned char {
    block = 0,
    page = 1,
    component = 2,
    pin = 3,
    net = 4,
    bus = 5,
    junction = 6,
    border = 7,
    text = 8,
    graphic = 9,
};

/// A group or a component of a design. Not owned by those who are handed one; valid while the design is
/// attached.
class IObject {
public:
    virtual ~IObject() = default;

    /// The kind byte. A database written by a later release may hold values that ObjectKind does not name.
    virtual unsigned char GetKind() const = 0;

    /// Reads a text attribute. @param name mangled name, see CPropertyMangler.
    /// @return false, with `text` untouched, if the object has no such attribute.
    virtual bool GetTextAttribute(const std::string& name, std::string& text) const = 0;

    /// Sets a text attribute, adding it if need be. @return false if the design cannot be written.
    virtual bool SetTextAttribute(const std::string& name, const std::string& text) = 0;
};

} // namespace iKDS
