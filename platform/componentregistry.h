#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// The class id in its registry form, "{01234567-89AB-CDEF-0123-456789ABCDEF}", in upper case; nothing if the
/// text is not exactly one, in either case.
std::optional<std::string> parseClassId(std::string_view text);

/// Where a component's library is, as an installation registers it.
struct ComponentEntry {
    std::string library; ///< full path; empty if there is none to load
    std::string error;   ///< what is wrong with the entry, path included; empty for a class without one
};

/// Looks a class up: `standard/components/CLASSID.ini` in the installation names, in the section "Component"
/// under "Library", a shared library by its path from that directory. The library must lie inside the
/// installation, links followed.
/// @param home    the installation's directory.
/// @param classId as parseClassId gives it.
ComponentEntry findComponent(const std::string& home, const std::string& classId);

} // namespace platform
