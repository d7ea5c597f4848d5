#pragma once

#include "platform/profiledocument.h"
#include "platform/result.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace suite {

/// The file behind content that is held parsed. A save lays what was changed onto the file as it is on disk
/// by then, so that what others wrote there stays.
class MergedFile {
public:
    /// Reads another file; an empty path means no file and no content.
    /// @return nothing if the former content stays: the file cannot be read, of which the error log is told
    ///         unless the file is missing; or a save of this content failed, and the file is as it was.
    std::optional<platform::ProfileDocument> reload(const std::string& path);

    /// Writes the content into the file as it is on disk.
    /// @param isOrigin whether this is the file that the content came from, so that only what was changed
    ///                 since has to be written. Otherwise the file is empty.
    /// @return what the file cannot hold.
    using Edit = std::function<platform::Result<>(platform::ProfileDocument& content, bool isOrigin)>;

    /// The names of sections that files of one kind may have.
    using Sections = std::span<const std::string_view>;

    /// Saves to a file, which is made if it is missing. The edit must depend on its arguments alone. A file
    /// that has content and was not read is not written: nobody has seen what it would lose. Nor is one whose
    /// content has none of the sections: a project may name any file as one of its own, also one that other
    /// programs run.
    /// After an error the file is as it was, and the error log was told.
    platform::Result<> save(const std::string& path, Sections sections, const Edit& edit);

private:
    platform::Result<> trySave(const std::string& path, Sections sections, const Edit& edit);

    std::string origin_;   ///< the file that has the content, once read or saved
    std::string bytes_;    ///< what that file held then
    bool unsaved_ = false; ///< the last save failed
};

/// A name and a value, as a section holds them.
using Entry = std::pair<std::string, std::string>;

/// The entries of a section in the order of the file.
std::vector<Entry> readEntries(const platform::ProfileDocument& content, std::string_view section);

/// Leaves out entries of the former ones whose name stands in another case in a new one: names of a file have
/// no case, so the new one takes the place.
std::vector<Entry> withoutFormerSpellings(std::vector<Entry> entries, std::span<const Entry> former);

/// Lays what differs between former and present entries onto a section: those that went are deleted, those
/// that are new or have another value are set.
/// @return what the file cannot hold.
platform::Result<> storeEntries(platform::ProfileDocument& content, std::string_view section,
                                std::span<const Entry> former, std::span<const Entry> present);

/// Puts those of the entries that a section holds into their order there.
void orderEntries(platform::ProfileDocument& content, std::string_view section,
                  std::span<const Entry> entries);

/// Replaces a list. @return what the file cannot hold.
platform::Result<> storeList(platform::ProfileDocument& content, std::string_view section,
                             std::string_view name, std::span<const std::string> texts);

} // namespace suite
