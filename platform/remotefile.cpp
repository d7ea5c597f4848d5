#include "platform/remotefile.h"

#include "platform/descriptor.h"
#include "platform/homedirectory.h"
#include "platform/paths.h"
#include "platform/sharedlibrary.h"
#include "platform/urlaccess.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace platform {

struct RemoteStream : UrlStream {};

namespace {

constexpr std::uint32_t kLocalMagic = 0;
constexpr char kQuote = '"';
/// A server that took longer for one answer is not worth another question.
constexpr std::chrono::milliseconds kSlow{2000};

/// What would end the path in a location, though it is part of a name.
struct Encoding {
    char character;
    const char* encoded;
};
constexpr std::array kEncodings{Encoding{'#', "%23"}, Encoding{'?', "%3F"}};

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

struct LocalStream : RemoteStream {
    explicit LocalStream(File opened) : RemoteStream{{kLocalMagic}}, file(std::move(opened)) {}
    File file;
};

/// The entry points that are called here.
struct Functions {
    decltype(&URL_Fopen) open = nullptr;
    decltype(&URL_Fclose) close = nullptr;
    decltype(&URL_Fgets) gets = nullptr;
    decltype(&URL_InfoURL) infoOfUrl = nullptr;
};

struct EntryPoint {
    const char* name;
    void (*keep)(Functions& functions, void* address) = [](Functions&, void*) {
    };
};

template <auto Member>
constexpr EntryPoint entryPoint(const char* name) {
    return {name, [](Functions& functions, void* address) {
                functions.*Member =
                    reinterpret_cast<std::remove_reference_t<decltype(functions.*Member)>>(address);
            }};
}

/// A module that lacks one of them is not one of this contract, whether it is called here or not.
constexpr std::array kEntryPoints{
    entryPoint<&Functions::open>("URL_Fopen"),
    entryPoint<&Functions::close>("URL_Fclose"),
    EntryPoint{"URL_Fread"},
    EntryPoint{"URL_Fseek"},
    entryPoint<&Functions::gets>("URL_Fgets"),
    EntryPoint{"URL_Fgetc"},
    EntryPoint{"URL_Ungetc"},
    EntryPoint{"URL_Ftell"},
    EntryPoint{"URL_Info"},
    entryPoint<&Functions::infoOfUrl>("URL_InfoURL"),
    EntryPoint{"URL_Loop2"},
};

/// What is loaded for one scheme. An absent module is looked for once.
struct Module {
    std::once_flag once;
    SharedLibrary library;
    Functions functions;
};

/// The directory of the library that this code is part of. Where the loader found it by a relative path, that
/// one begins at the directory that was current then.
std::string ownDirectory() {
    Dl_info self{};
    static const char anchor = 0;
    if (dladdr(&anchor, &self) == 0 || !self.dli_fname || isBareName(self.dli_fname))
        return {};
    return std::string(splitPath(fullPath(self.dli_fname)).directory);
}

const std::string kOwnDirectory = ownDirectory();

bool loadFrom(const std::string& name, Module& module) {
    SharedLibrary library(name, SharedLibrary::Lifetime::object);
    Functions functions;
    for (const EntryPoint& entry : kEntryPoints) {
        void* address = library.symbol(entry.name);
        if (!address)
            return false;
        entry.keep(functions, address);
    }
    library.keepInProcess();
    module.library = std::move(library);
    module.functions = functions;
    return true;
}

/// The entry points for the scheme, or null if its module is not there.
const Functions* functionsOf(const UrlScheme& scheme) {
    // Never destroyed: a look-up on a thread of its own may still be under way when the process ends.
    static auto& modules = *new std::array<Module, kUrlSchemes.size()>;
    Module& module = modules[static_cast<std::size_t>(&scheme - kUrlSchemes.data())];
    std::call_once(module.once, [&] { loadFrom(kOwnDirectory + '/' + scheme.module, module); });
    return module.library ? &module.functions : nullptr;
}

std::string_view withoutQuote(std::string_view path) {
    return path.substr(path.starts_with(kQuote) ? 1 : 0);
}

const UrlScheme* schemeOf(std::string_view path) {
    const auto found = std::ranges::find_if(
        kUrlSchemes, [&](const UrlScheme& scheme) { return withoutQuote(path).starts_with(scheme.prefix); });
    return found == kUrlSchemes.end() ? nullptr : &*found;
}

const UrlScheme* schemeOf(const RemoteStream& stream) {
    const auto found = std::ranges::find(kUrlSchemes, stream.magic, &UrlScheme::magic);
    return found == kUrlSchemes.end() ? nullptr : &*found;
}

/// The location as the module takes it.
std::string urlOf(std::string_view path) {
    std::string url;
    for (const char c : platformPath(withoutQuote(path))) {
        const auto encoding = std::ranges::find(kEncodings, c, &Encoding::character);
        if (encoding != kEncodings.end())
            url += encoding->encoded;
        else if (c != kQuote) // a closing one may stand anywhere, once something was joined to the path
            url += c;
    }
    return url;
}

bool isForReading(std::string_view mode) {
    return mode.starts_with('r') && mode.find('+') == std::string_view::npos;
}

RemoteStream* openRemote(const UrlScheme& scheme, std::string_view path, const char* mode) {
    const Functions* functions = functionsOf(scheme);
    UrlStream* stream = functions ? functions->open(urlOf(path).c_str(), mode) : nullptr;
    if (stream && stream->magic != scheme.magic) {
        functions->close(stream);
        return nullptr;
    }
    return static_cast<RemoteStream*>(stream);
}

RemoteStream* openLocal(std::string_view path) {
    const auto existing = resolveExisting(path);
    if (!existing)
        return nullptr;
    Descriptor descriptor(::open(existing->c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status;
    if (!descriptor.valid() || fstat(descriptor.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return nullptr;
    File file(fdopen(descriptor.get(), "r"));
    if (!file)
        return nullptr;
    descriptor.release();
    return new LocalStream(std::move(file));
}

} // namespace

bool IsRemotePath(std::string_view path) {
    return schemeOf(path) != nullptr;
}

void loadUrlModules() {
    for (const UrlScheme& scheme : kUrlSchemes)
        functionsOf(scheme);
}

RemoteStream* RemoteOpen(const std::string& path, const char* mode) {
    if (!isForReading(mode))
        return nullptr;
    const UrlScheme* scheme = schemeOf(path);
    return scheme ? openRemote(*scheme, path, mode) : openLocal(path);
}

char* RemoteGets(char* buffer, int size, RemoteStream* stream) {
    if (!stream || size <= 0)
        return nullptr;
    if (const UrlScheme* scheme = schemeOf(*stream))
        return functionsOf(*scheme)->gets(buffer, size, stream);
    return std::fgets(buffer, size, static_cast<LocalStream*>(stream)->file.get());
}

void RemoteClose(RemoteStream* stream) {
    if (!stream)
        return;
    if (const UrlScheme* scheme = schemeOf(*stream))
        functionsOf(*scheme)->close(stream);
    else
        delete static_cast<LocalStream*>(stream);
}

RemoteAnswer askRemote(const std::string& path, std::chrono::milliseconds patience) {
    const UrlScheme* scheme = schemeOf(path);
    const Functions* functions = scheme ? functionsOf(*scheme) : nullptr;
    if (!functions || patience <= patience.zero())
        return {kRemoteUnreachable, false};
    UrlInfo info{0, -1, static_cast<std::int32_t>(std::min(patience, kRemotePatience).count())};
    const int kind = functions->infoOfUrl(urlOf(path).c_str(), &info);
    return {kind, info.answered != 0};
}

int ProbeRemote(const std::string& path) {
    return askRemote(path).kind;
}

int RemoteQuestion::probe(const std::string& path) {
    if (silent_)
        return kRemoteUnreachable;
    const auto begin = Clock::now();
    const RemoteAnswer answer =
        askRemote(path, std::chrono::duration_cast<std::chrono::milliseconds>(deadline_ - begin));
    silent_ = !answer.answered || Clock::now() - begin > kSlow;
    return answer.kind;
}

int TestPathKind(const std::string& path, PathKind kind) {
    const auto existing =
        path.find_first_of("*?") == std::string::npos ? resolveExisting(path) : std::nullopt;
    const bool is = existing && (kind == PathKind::directory ? isDirectory(*existing) : isFile(*existing));
    return is ? 0 : 1;
}

std::string expandHome(std::string path) {
    if (path.starts_with('~')) {
        const auto end = std::min(path.find_first_of(kSeparators), path.size());
        if (const auto home = homeDirectory(path.substr(1, end - 1)))
            path.replace(0, end, *home);
    }
    return path;
}

void NormalizeName(std::string& path) {
    path = expandHome(std::move(path));
    if (path.starts_with('.') || path.starts_with('~'))
        path = fullPath(path);
}

} // namespace platform
