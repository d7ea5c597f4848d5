#pragma once

#include "orv/appconfiguration.h"
#include "ovsettings/export.h"

#include <optional>
#include <string>
#include <vector>

namespace Orv {

/// What one working directory's configuration says about one property.
struct OVSETTINGS_API LevelStatement {
    std::string directory;
    bool hasConfiguration = false; ///< false where the directory yields no configuration
    bool present = false;          ///< true where the configuration mentions the property

    /// One entry a field; no value where the configuration leaves the field out. For a list, as many as it
    /// holds. Empty where the configuration does not mention the property.
    std::vector<std::optional<std::string>> values;
    std::vector<bool> locks; ///< as long as `values`; true where the configuration locks the field
};

/// Where one field's effective value comes from.
struct OVSETTINGS_API FieldOrigin {
    std::string valueDirectory; ///< the directory that gave the value; empty for the built-in default and for
                                ///< a value changed since the load
    std::string lockDirectory;  ///< the directory that locked the field first; empty if it is not locked
    LockNote lockNote;          ///< the words beside that lock; empty if there are none
};

/// One property with everything that had a say in it.
struct OVSETTINGS_API PropertyReport {
    iAppConfiguration::Property property;    ///< effective values, inherited defaults, locks; kind filled in
    std::vector<std::string> builtInDefault; ///< the default the product ships with, one text a field
    std::vector<LevelStatement> levels;      ///< from the installation to the user
    std::vector<FieldOrigin> origins;        ///< one entry a field of `property`
    bool changed = false; ///< true if any value differs from the built-in default, whatever the spelling of
                          ///< the number or colour
};

/// Reports every property in table order. Reads the configurations of the working directories once more, so
/// the statements are those of the files; values and origins are those of the last load.
OVSETTINGS_API std::vector<PropertyReport> reportConfiguration(const iAppConfiguration& appConfig);

/// Reports one property. @return nothing if the key is unknown.
OVSETTINGS_API std::optional<PropertyReport> reportProperty(const iAppConfiguration& appConfig,
                                                            const std::string& key);

} // namespace Orv
