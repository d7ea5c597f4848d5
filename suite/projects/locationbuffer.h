#pragma once

#include <string>

namespace suite {

/// Writes a text to a buffer of kLocationBufferSize bytes. @return false, with the buffer left alone, if it
/// is too long.
bool writeLocation(const std::string& text, char* buffer);

} // namespace suite
