#pragma once

#include "platform/filelock.h"
#include "platform/readfile.h"
#include "platform/result.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace platform {

/// What an edit makes of a file.
struct Edited {
    std::optional<std::string> bytes = {}; ///< nothing where nothing is to be changed
    /// Where it is not empty, what stands in the file's place is no such file: it is kept beside the new one,
    /// under its name with this behind it.
    std::string suffixOfFormer = {};
};

/// Is given the bytes of the file, or why they cannot be read; a missing file has the code ENOENT. It must
/// depend on them alone: it is made twice where the file changes meanwhile.
using FileEdit = std::function<Result<Edited>(const Result<std::string>& found)>;

struct EditOptions {
    std::size_t limit = kLargestFile; ///< in bytes, of what is read and of what is written
    /// Looks at the file before it is locked: who would change nothing waits for nobody, and need not have
    /// the right to write.
    bool looksFirst = true;
};

struct FileEdited {
    bool isWritten = false;
    std::string bytes = {};  ///< of the file by now
    std::string former = {}; ///< path of what was kept beside the new file, if anything was
};

/// Makes an edit in a file as it is on disk, under its lock, so that what others wrote there stays. A file
/// that would get the bytes it has is not written. After an error the file is what it was.
/// @param patience with the lock.
Result<FileEdited> editFile(const std::string& path, LockPatience& patience, const EditOptions& options,
                            const FileEdit& edit);

} // namespace platform
