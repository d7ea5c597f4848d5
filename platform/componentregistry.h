#pragma once

#include "platform/result.h"

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// The class id in its registry form, "{01234567-89AB-CDEF-0123-456789ABCDEF}", in upper case; nothing if the
/// text is not exactly one, in either case.
std::optional<std::string> parseClassId(std::string_view text);

/// Looks up where a class's library is: `standard/components/CLASSID.ini` in the installation names, in the
/// section "Component" under "Library", a shared library by its path from that directory. The library must
/// lie inside the installation, links followed.
/// @param home    the installation's directory.
/// @param classId as parseClassId gives it.
/// @return the full path, empty for a class without an entry; or what is wrong with the entry.
Result<std::string> findComponent(const std::string& home, const std::string& classId);

} // namespace platform
