#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace ovsettings {

/// One list's view of the file of what runs on startup: the entries "PREFIX#0", "PREFIX#1" and so on of one
/// section.
class ScriptsIni {
public:
    virtual ~ScriptsIni() = default;

    /// @param prefixId id of the string that the keys of the list begin with.
    void setUp(const std::string& fileName, unsigned prefixId);

    /// Fills the list with the values up to the first number without one. A file that is missing or cannot be
    /// read gives an empty list.
    void read(std::vector<std::string>& list);

    /// Writes the list, an empty text as no entry. Entries that the last read or write has covered and the
    /// list does not are deleted; those with higher numbers are somebody else's and stay.
    /// @param patience how long to wait for someone else's lock; used up, it is 0 from then on.
    /// @return false if anything could not be written. What could be read not even once is never written.
    bool write(const std::vector<std::string>& list, std::chrono::milliseconds& patience);

private:
    bool hasDirectory() const;
    std::string key(int index) const;

    std::string fileName_;
    std::string prefix_;
    int count_ = 0; ///< how many keys the last read or write has covered
    bool readable_ = false;
};

} // namespace ovsettings
