#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

/// The contract between the remote file layer and the URL access module, an optional loadable library. Plain
/// C at the boundary, so that a module may be built by anybody. All texts are UTF-8; every entry point may be
/// called on any thread, one stream on one thread at a time, and returns within a bounded time. A module
/// sends no secret of its user, follows a server to no other host and no plainer scheme, and has an encrypted
/// server prove its name; what would need more can't be reached.

/// What the layer knows of a scheme before any module is loaded.
struct UrlScheme {
    const char* prefix;  ///< how the locations begin
    const char* module;  ///< name of the library
    std::uint32_t magic; ///< first word of the streams of this scheme
};

inline constexpr std::array kUrlSchemes{
    UrlScheme{"http:", "libOvUrlAccess.so", 0xe4e41644},
    UrlScheme{"ftp:", "libOvUrlAccess.so", 0xe4e41645},
    UrlScheme{"https:", "libOvUrlAccess.so", 0xe4e41646},
};

#define OVURL_API __attribute__((visibility("default")))

extern "C" {

/// Every stream begins with the magic number of its scheme; what follows is the module's own.
struct UrlStream {
    std::uint32_t magic;
};

struct UrlInfo {
    std::int32_t answered; ///< non-zero if the server answered, be it that there is no such thing
    std::int64_t size;     ///< in bytes; -1 if not known
    std::int32_t
        patience; ///< of the caller, in milliseconds, set before a call; 0 for the module's own limit
};

/// What URL_Info and URL_InfoURL return.
enum UrlKind : std::int32_t { kUrlDirectory = 2, kUrlFile = 3, kUrlUnreachable = 4 };

/// Opens a location for reading. @param mode as of fopen; one that writes is refused.
/// @return null if the location can't be read, or holds more than the module's limit of size.
OVURL_API UrlStream* URL_Fopen(const char* url, const char* mode);

/// These act like the calls of the C library after which they are named.
OVURL_API int URL_Fclose(UrlStream* stream);
OVURL_API std::size_t URL_Fread(void* buffer, std::size_t size, std::size_t count, UrlStream* stream);
OVURL_API int URL_Fseek(UrlStream* stream, long offset, int origin);
OVURL_API char* URL_Fgets(char* buffer, int size, UrlStream* stream);
OVURL_API int URL_Fgetc(UrlStream* stream);
OVURL_API int URL_Ungetc(int character, UrlStream* stream);
OVURL_API long URL_Ftell(UrlStream* stream);

/// What an open stream, or a location, is. A location without end, or larger than any file of sense, can't be
/// reached. @param info filled in, but for its patience; may be null. @return an UrlKind.
OVURL_API int URL_Info(UrlStream* stream, UrlInfo* info);
OVURL_API int URL_InfoURL(const char* url, UrlInfo* info);

/// Gives transfers that go on in the background a turn. @return how many there are; always 0 of a module
/// whose other calls transfer all that they need.
OVURL_API int URL_Loop2(void);
}
