#pragma once

#include "dialog/shell/categories.h"

#include <string>

namespace ovsettings {

/// Reads a catalogue file and tells the user, in a message box, what is wrong with it.
class CSettingsXmlReader {
public:
    explicit CSettingsXmlReader(std::string path);

    /// @return the top-level categories, as far as the file could be read.
    CategoryNodes read() const;

private:
    Catalogue readFile() const;

    std::string path_;
};

} // namespace ovsettings
