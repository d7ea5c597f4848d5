#pragma once

#include <cstddef>

namespace bench {

/// How often this process has asked for memory so far, from any of its libraries.
std::size_t allocations();

} // namespace bench
