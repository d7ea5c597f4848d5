#pragma once

#include "suite/export.h"

#include <string>
#include <utility>

/// What makes a directory or a remote location a library of symbols, and what names a library may have. Paths
/// are UTF-8 with separators of either kind; a remote one begins with "http:", "https:" or "ftp:". Yes-or-no
/// answers are zero or non-zero. May be called on any thread; remote and network paths may take long to
/// answer. The process must not change its environment while a call may be under way on another thread.

/// A text with references to environment variables, "%NAME%".
class OVSUITE_API ZECString {
public:
    ZECString() = default;
    explicit ZECString(std::string text) : text_(std::move(text)) {}
    /// Replaces the references in place; an unknown name stays as it stands. A remote location, and a text
    /// that would become one, stays as a whole, since the server is not to learn what the environment holds;
    /// so does one that would be longer than 64 KiB.
    void ConvertEnvironmentVariables();
    const std::string& text() const { return text_; }

private:
    std::string text_;
};

/// Whether a name is a legal library name: an ASCII letter, then ASCII letters, digits and "_". The
/// length is not judged.
OVSUITE_API int ZECIsValidAlias(const std::string& name);
/// Whether a directory or remote location is a library. @param flag 1 in general; 0 for a megafile that may
/// have a symbol directory beside it, where only directories make a library.
OVSUITE_API int ZECIsValidLibrary(const std::string& path, int flag);
/// Whether the location holds a megafile library, all symbols in one file.
OVSUITE_API int ZECCheckMegafile(const std::string& path);
/// What a library may hold, by which it is known.
enum class ZECContent {
    symbols,           ///< a directory of them
    schematics,        ///< a directory of them
    symbolMegafile,    ///< all symbols in one file
    schematicMegafile, ///< all schematics in one file
    symbolFiles,       ///< a directory of symbols with at least one in it; of a local library only
};
/// Whether a directory or remote location holds that.
OVSUITE_API int ZECHolds(const std::string& path, ZECContent content);
/// The alias that the library's own file "lib.cfg" gives it: what follows "alias " in the first line that
/// begins with it, when the blanks at the line's ends are gone. Of a line longer than 255 bytes the rest
/// counts as a line of its own. @return empty without such a line or file.
OVSUITE_API std::string ZECReadAlias(const std::string& path);
/// Whether the location can't be written; a path that does not exist is judged by its nearest directory that
/// does.
OVSUITE_API int ZECIsReadOnlyFileSystem(const std::string& path);
/// The alias that the environment knows for the location, or empty: the first "NAME=PATH" with that path in
/// the variable OV_LIBRARY_ALIASES, where ";" separates.
OVSUITE_API std::string ZECFindAlias(const std::string& path);
/// Drops one trailing separator, except that of a root.
OVSUITE_API void ZECRemoveLastSlash(std::string& path);
/// The separator that the path uses; the platform's if it has none.
OVSUITE_API char ZECGetSlash(const std::string& path);
/// Strips a temporary mount prefix, "/tmp_mnt", of an automounter.
OVSUITE_API void ZECPathRemoveTmpMnt(std::string& path);
/// Creates the directory with its parents. @return non-zero on success, or if it is there.
OVSUITE_API int ZECMakePath(const std::string& path);
