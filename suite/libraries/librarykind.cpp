// What a location is.

#include "suite/zec.h"

#include "platform/remotefile.h"

#include <algorithm>
#include <array>

namespace {

using platform::PathKind;

/// What makes a directory a library, in the order in which it is looked for.
struct Mark {
    const char* name;
    PathKind kind;
    bool alsoForMegafile; ///< counts where a megafile does not
};

constexpr char kMegafile[] = "sym.lib";
constexpr std::array kMarks{
    Mark{"sym", PathKind::directory, true},
    Mark{"sch", PathKind::directory, true},
    Mark{kMegafile, PathKind::file, false},
    Mark{"sch.lib", PathKind::file, false},
};
/// A server need not list its directories, so a remote library may also show itself by this file.
constexpr Mark kRemoteMark{"lib.cfg", PathKind::file, true};

/// Whether the location has what the mark says.
bool has(const std::string& path, const Mark& mark, platform::RemoteQuestion& question) {
    const std::string marked = platform::MakeFilePath(path, mark.name, {});
    if (!platform::IsRemotePath(path))
        return platform::TestPathKind(marked, mark.kind) == 0;
    return question.probe(marked) == static_cast<int>(mark.kind);
}

} // namespace

int ZECIsValidLibrary(const std::string& path, int flag) {
    if (path.empty())
        return 0;
    platform::RemoteQuestion question;
    if (platform::IsRemotePath(path) && has(path, kRemoteMark, question))
        return 1;
    for (const Mark& mark : kMarks) {
        if ((flag != 0 || mark.alsoForMegafile) && has(path, mark, question))
            return 1;
    }
    return 0;
}

int ZECCheckMegafile(const std::string& path) {
    platform::RemoteQuestion question;
    return !path.empty() && has(path, {kMegafile, PathKind::file, false}, question) ? 1 : 0;
}
