#pragma once

#include <string_view>

namespace platform {

/// Whether a text is UTF-8, in the shortest form and without surrogates, and each of its characters accepted.
bool isUtf8Of(std::string_view text, bool (*accepts)(char32_t character));

} // namespace platform
