// What a library says of itself.

#include "suite/zec.h"

#include "platform/remotefile.h"
#include "platform/trim.h"
#include "suite/libraries/librarymarks.h"

#include <array>
#include <memory>
#include <string_view>

namespace {

constexpr std::string_view kKeyword = "alias ";
constexpr std::size_t kLongestLine = 255;
/// A file without end must not take one's time.
constexpr int kMostLines = 65536;

struct Close {
    void operator()(platform::RemoteStream* stream) const { platform::RemoteClose(stream); }
};

} // namespace

std::string ZECReadAlias(const std::string& path) {
    const std::unique_ptr<platform::RemoteStream, Close> stream(
        platform::RemoteOpen(path + '/' + suite::kLibraryFile, "r"));
    std::array<char, kLongestLine + 1> buffer;
    for (int lines = 0; lines < kMostLines; ++lines) {
        const char* read = platform::RemoteGets(buffer.data(), static_cast<int>(buffer.size()), stream.get());
        if (!read)
            break;
        const std::string_view line = platform::trim(read);
        if (line.starts_with(kKeyword))
            return std::string(line.substr(kKeyword.size()));
    }
    return {};
}
