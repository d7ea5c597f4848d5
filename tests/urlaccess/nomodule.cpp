// A program that has no URL access module beside it, or one that lacks an entry point. One that the loader
// would find by its name is not asked for.

#include "platform/libcfg.h"
#include "platform/remotefile.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

int main() {
    std::string pattern = (std::filesystem::temp_directory_path() / "ovtest.XXXXXX").string();
    const std::string directory = mkdtemp(pattern.data());
    std::ofstream(directory + "/lib.cfg") << "alias local\n";

    const bool isRight = platform::IsRemotePath("http://127.0.0.1/") &&
                         platform::ProbeRemote("http://127.0.0.1/") == platform::kRemoteUnreachable &&
                         platform::ProbeRemote("ftp://127.0.0.1/") == platform::kRemoteUnreachable &&
                         !platform::RemoteOpen("http://127.0.0.1/", "r") &&
                         platform::readLibraryAlias(directory) == "local";
    std::filesystem::remove_all(directory);
    return isRight ? EXIT_SUCCESS : EXIT_FAILURE;
}
