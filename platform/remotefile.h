#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace platform {

/// A stream of RemoteOpen, on a local file or on a remote one.
struct RemoteStream;

/// True if the path, after one optional leading double quote, begins with "http:", "https:" or "ftp:".
bool IsRemotePath(std::string_view path);

/// Loads the modules now rather than on first use. They need further libraries, which the loader may be told
/// to look for in the current directory.
void loadUrlModules();

/// File access that acts like fopen, fgets and fclose on a local path. For a remote one it turns "\" into "/"
/// and goes through the URL access module, which is loaded on first use from beside this library; without the
/// module, or one of its entry points, every remote path fails to open. Local paths take separators of either
/// kind and must name regular files, so that a pipe makes nobody wait. Only modes that read open anything.
/// May be called on any thread; a remote call returns within a bounded time.
RemoteStream* RemoteOpen(const std::string& path, const char* mode);
/// Reads up to `size` - 1 bytes, to the end of a line and with it. @return `buffer`, or null at the end.
char* RemoteGets(char* buffer, int size, RemoteStream* stream);
void RemoteClose(RemoteStream* stream);

/// What ProbeRemote returns for a location that can't be reached.
constexpr int kRemoteUnreachable = 4;
/// Asks whether a remote location answers. @return kRemoteUnreachable if not.
int ProbeRemote(const std::string& path);

struct RemoteAnswer {
    int kind;      ///< as of ProbeRemote; a location that can be reached has the number of its PathKind
    bool answered; ///< false if the server is silent, so that further questions to it cost as much time
};
/// The longest that one answer may take.
constexpr std::chrono::milliseconds kRemotePatience{4000};
RemoteAnswer askRemote(const std::string& path, std::chrono::milliseconds patience = kRemotePatience);

/// Probes of one server that share the time of one. A server that was silent or slow for one of them counts
/// as silent for the rest.
class RemoteQuestion {
public:
    /// As ProbeRemote; what can be reached has the number of its PathKind.
    int probe(const std::string& path);

private:
    using Clock = std::chrono::steady_clock;
    Clock::time_point deadline_ = Clock::now() + kRemotePatience;
    bool silent_ = false;
};

enum class PathKind : int { directory = 2, file = 3 };
/// 0 if the path is of that kind. A path with "*" or "?" never is.
int TestPathKind(const std::string& path, PathKind kind);

/// The path with the home directory in place of a leading "~" or "~USER". That of a user who is not known
/// stays. May take long where the users are known to a server only.
std::string expandHome(std::string path);

/// Turns a leading "." or "~" into an absolute path, in place.
void NormalizeName(std::string& path);

} // namespace platform
