#pragma once

#include "tests/support/configuredpages.h"

/// An entry of a configuration file; a locked one is locked there.
struct Entry {
    std::string key;
    std::string value;
    bool locked = false;
};

class EditorPages : public ConfiguredPages {
protected:
    /// Loads a configuration whose site level holds these entries.
    void load(const std::vector<Entry>& entries);
    /// The same with values that the store may read as others.
    void loadAsWritten(const std::vector<Entry>& entries);

    std::string stored(const std::string& key) const;
    std::string siteDirectory() const { return installation_.site().string(); }
};
