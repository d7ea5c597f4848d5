// A program that has no URL access module beside it, or one that lacks an entry point. One that the loader
// would find by its name is not asked for.

#include "platform/remotefile.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string_view>

namespace {

bool isRead(const std::string& path, std::string_view line) {
    std::array<char, 16> text{};
    platform::RemoteStream* stream = platform::RemoteOpen(path, "r");
    const char* read = platform::RemoteGets(text.data(), static_cast<int>(text.size()), stream);
    platform::RemoteClose(stream);
    return read && line == read;
}

} // namespace

int main() {
    std::string pattern = (std::filesystem::temp_directory_path() / "ovtest.XXXXXX").string();
    const std::string directory = mkdtemp(pattern.data());
    std::ofstream(directory + "/local") << "local\n";

    const bool isRight = platform::IsRemotePath("http://127.0.0.1/") &&
                         platform::ProbeRemote("http://127.0.0.1/") == platform::kRemoteUnreachable &&
                         platform::ProbeRemote("ftp://127.0.0.1/") == platform::kRemoteUnreachable &&
                         !platform::RemoteOpen("http://127.0.0.1/", "r") &&
                         isRead(directory + "/local", "local\n");
    std::filesystem::remove_all(directory);
    return isRight ? EXIT_SUCCESS : EXIT_FAILURE;
}
