#include "suite/libraries/libcfg.h"

#include "platform/remotefile.h"
#include "platform/trim.h"

#include <array>
#include <memory>
#include <string_view>

namespace platform {

namespace {

constexpr char kFile[] = "/lib.cfg";
constexpr std::string_view kKeyword = "alias ";
constexpr std::size_t kLongestLine = 255;

struct Close {
    void operator()(RemoteStream* stream) const { RemoteClose(stream); }
};

} // namespace

std::string readLibraryAlias(const std::string& libraryPath) {
    const std::unique_ptr<RemoteStream, Close> stream(RemoteOpen(libraryPath + kFile, "r"));
    std::array<char, kLongestLine + 1> buffer;
    for (int lines = 0; lines < kMostLibCfgLines; ++lines) {
        const char* read = RemoteGets(buffer.data(), static_cast<int>(buffer.size()), stream.get());
        if (!read)
            break;
        const std::string_view line = trim(read);
        if (line.starts_with(kKeyword))
            return std::string(line.substr(kKeyword.size()));
    }
    return {};
}

} // namespace platform
