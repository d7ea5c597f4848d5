#pragma once

#include "orv/projectfiledata.h"

#include <optional>
#include <string>

namespace ovsettings {

/// Knows which file of the project an object holds that a page edits. The project page has the object read
/// another file that it names itself; of one that another program has named nobody else takes care.
class NamedFile {
public:
    /// @param path by which the object was loaded; empty without a file.
    void noteLoaded(const std::string& path) { path_ = path; }

    /// Has the object read the file that the project names by now, unless it holds that one.
    void follow(Orv::IProjectFileConsumer& object, const std::string& path) {
        if (path_ == path)
            return;
        path_ = path;
        object.Reload(path);
    }

    /// The file may hold what nobody has read: the next time it is read anew, or it could never be saved.
    void noteFailedSave() { path_.reset(); }

private:
    std::optional<std::string> path_;
};

} // namespace ovsettings
