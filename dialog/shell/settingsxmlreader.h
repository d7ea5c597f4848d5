#pragma once

#include <string>

namespace ovsettings {

class CPageManager;

/// Fills a page manager with the categories of a catalogue file.
class CSettingsXmlReader {
public:
    explicit CSettingsXmlReader(CPageManager& manager);

    /// Reads the file. What is wrong with it is told to the user in a message box; what was read before
    /// stays.
    /// @return true if the file was a document with a root element.
    bool read(const std::string& path);

private:
    CPageManager& manager_;
    bool loaded_ = false;
};

} // namespace ovsettings
