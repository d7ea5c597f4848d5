// What a location is.

#include "suite/zec.h"

#include "platform/paths.h"
#include "platform/remotefile.h"
#include "suite/libraries/librarymarks.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace {

using platform::PathKind;
using suite::kLibraryMarks;
using suite::LibraryMark;

bool has(const std::string& path, const char* name, PathKind kind, platform::RemoteQuestion& question) {
    const std::string marked = platform::MakeFilePath(path, name);
    if (!platform::IsRemotePath(path))
        return platform::TestPathKind(marked, kind) == 0;
    return question.probe(marked) == static_cast<int>(kind);
}

const LibraryMark& markOf(ZECContent content) {
    return *std::ranges::find(kLibraryMarks, content, &LibraryMark::content);
}

bool hasSymbolFiles(const std::string& path) {
    if (platform::IsRemotePath(path))
        return false;
    const auto directory =
        platform::resolveExisting(platform::MakeFilePath(path, markOf(ZECContent::symbols).name));
    if (!directory)
        return false;
    std::error_code error;
    std::filesystem::directory_iterator entry(*directory, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        if (entry->path().native().ends_with(suite::kSymbolFileEnd))
            return true;
    }
    return false;
}

} // namespace

int ZECIsValidLibrary(const std::string& path, int flag) {
    if (path.empty())
        return 0;
    platform::RemoteQuestion question;
    if (platform::IsRemotePath(path) && has(path, suite::kLibraryFile, PathKind::file, question))
        return 1;
    for (const LibraryMark& mark : kLibraryMarks) {
        if ((flag != 0 || mark.alsoForMegafile) && has(path, mark.name, mark.kind, question))
            return 1;
    }
    return 0;
}

int ZECCheckMegafile(const std::string& path) {
    return ZECHolds(path, ZECContent::symbolMegafile);
}

int ZECHolds(const std::string& path, ZECContent content) {
    if (path.empty())
        return 0;
    if (content == ZECContent::symbolFiles)
        return hasSymbolFiles(path) ? 1 : 0;
    const LibraryMark& mark = markOf(content);
    platform::RemoteQuestion question;
    return has(path, mark.name, mark.kind, question) ? 1 : 0;
}
