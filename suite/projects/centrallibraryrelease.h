#pragma once

#include <string_view>

namespace suite {

/// The release of central libraries that this suite works with, as their index says it.
inline constexpr std::string_view kCentralLibraryRelease = "9.2";

} // namespace suite
