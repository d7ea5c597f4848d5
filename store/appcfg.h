#pragma once

#include "ovsettings/export.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Orv {

class iAppConfiguration;

/// How every page reads and writes a key. An unknown key reads as empty and is not written; nothing is
/// reported. Field indices count from 0.

/// The first field and its lock. `readonly` stays as the caller set it if the key is unknown or has no field.
OVSETTINGS_API void getValue(const iAppConfiguration& appConfig, const std::string& key, std::string& value,
                             bool& readonly);
OVSETTINGS_API void getValue(const iAppConfiguration& appConfig, const std::string& key, std::string& value);

/// Appends every field and every lock; the outputs are not cleared first.
OVSETTINGS_API void getValues(const iAppConfiguration& appConfig, const std::string& key,
                              std::vector<std::string>& values, std::vector<bool>& readonly);
OVSETTINGS_API void getValues(const iAppConfiguration& appConfig, const std::string& key,
                              std::vector<std::string>& values);

/// Makes the property hold this one field. On a property of several fields this drops the others.
OVSETTINGS_API void setValue(iAppConfiguration& appConfig, const std::string& key, const std::string& value);

/// A flag as it is stored.
constexpr const char* flagText(bool on) {
    return on ? "1" : "0";
}

/// Replaces one field; an index outside the property does nothing.
OVSETTINGS_API void setValueAt(iAppConfiguration& appConfig, std::size_t index, const std::string& key,
                               const std::string& value);

OVSETTINGS_API void setValues(iAppConfiguration& appConfig, const std::string& key,
                              const std::vector<std::string>& values);

} // namespace Orv
