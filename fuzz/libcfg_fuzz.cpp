// The reader of a library's own file.

#include "details/platform/libcfg.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string_view>

namespace {

constexpr std::string_view kBlanks = " \t\r\n\v\f";
constexpr std::size_t kLongestAlias = 255 - std::string_view("alias ").size();

void require(bool holds) {
    if (!holds)
        std::abort();
}

/// In memory where the system has such a directory.
std::string makeLibrary() {
    const char* root = std::filesystem::is_directory("/dev/shm") ? "/dev/shm" : "/tmp";
    std::string pattern = std::string(root) + "/libcfg_fuzz.XXXXXX";
    require(mkdtemp(pattern.data()) != nullptr);
    return pattern;
}

struct Library {
    ~Library() { std::filesystem::remove_all(path); }
    std::string path = makeLibrary();
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Library library;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::ofstream(library.path + "/lib.cfg", std::ios::binary) << text << std::flush;

    const std::string alias = platform::readLibraryAlias(library.path);
    if (alias.empty())
        return 0;
    require(alias.size() <= kLongestAlias);
    require(alias.find_first_of(std::string("\n\0", 2)) == std::string::npos);
    require(kBlanks.find(alias.back()) == std::string_view::npos);
    require(text.find("alias " + alias) != std::string_view::npos);
    return 0;
}
