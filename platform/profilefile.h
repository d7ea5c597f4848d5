#pragma once

#include "platform/filelock.h"
#include "platform/profiledocument.h"
#include "platform/result.h"

#include <chrono>
#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// A file of ini kind, read once, asked and changed any number of times, and written as a whole at the end.
/// ProfileDocument says what such a file holds.
///
/// Changes are kept as such: saving makes them in the file as it is on disk at that moment, under its lock,
/// so that two programs that change different keys lose neither.
class ProfileFile {
public:
    /// @param path       as it was given: "\" is a separator, and case is not looked at where the exact name
    ///                   is missing.
    /// @param valueLimit the most bytes of a value that are read.
    explicit ProfileFile(std::string path, std::size_t valueLimit = std::numeric_limits<std::size_t>::max());

    /// Reads the file and forgets changes that were not saved. A missing file is an empty one; after an error
    /// there is nothing to ask for. A file in UTF-16 is refused with EILSEQ.
    Result<> load();

    std::vector<std::string> sectionNames() const { return document_.sectionNames(); }
    std::vector<std::string> keys(std::string_view section) const { return document_.keys(section); }
    /// The value of an entry, which may be empty, or `missing` if there is no such entry.
    std::string get(std::string_view section, std::string_view key, std::string_view missing = {}) const;

    /// Gives an entry a value, or deletes it if there is none; see ProfileDocument::set.
    bool set(std::string_view section, std::string_view key, std::optional<std::string_view> value);

    /// Makes the changes since the last load or save. A file that says the same already is not written, and
    /// need not be writable. After an error the file has its old bytes, and the changes are still to be
    /// saved.
    /// @param timeout how long to wait while someone else holds the lock.
    Result<> save(std::chrono::milliseconds timeout = kLockTimeout);

private:
    struct Change {
        std::string section;
        std::string key;
        std::optional<std::string> value;
    };

    std::string path_;
    std::size_t valueLimit_;
    ProfileDocument document_;
    std::vector<Change> changes_;
};

} // namespace platform
