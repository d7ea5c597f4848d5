// Paths: how they are found on disk, made full and freed of dots, and what references in them become.

#include "fuzz/support.h"
#include "platform/asciicase.h"
#include "platform/environmentreferences.h"
#include "platform/paths.h"
#include "platform/remotefile.h"

#include <sys/stat.h>

using fuzz::require;

namespace {

constexpr char kSecret[] = "hush";

/// A small tree, with names that differ in case only and with links.
class Tree {
public:
    Tree() {
        namespace fs = std::filesystem;
        const fs::path root = root_.directory();
        for (const char* name : {"Libs", "Other", "other", "Libs/deep"})
            fs::create_directory(root / name);
        fs::create_directory_symlink("Libs/deep", root / "link");
        fs::create_directory_symlink("link", root / "Libs/deep/LINK");
        fs::create_symlink("nowhere", root / "lost");
        for (const char* name : {"Libs/Parts.lib", "Libs/PARTS.LIB", "other/only", "Libs/deep/x"})
            fs::copy_file(root_.path(), root / name);
        setenv("OVFUZZ_DIR", root.c_str(), 1);
        setenv("OVFUZZ_SECRET", kSecret, 1);
        setenv("OVFUZZ_SERVER", "https://hush/", 1);
        setenv("OVFUZZ_H", "ht", 1);
    }

    const std::string& directory() const { return root_.directory(); }

private:
    fuzz::File root_{"file"};
};

std::string folded(std::string_view text) {
    std::string path;
    for (const char c : platform::inLowerCase(platform::platformPath(text))) {
        if (c != '/' || !path.ends_with('/'))
            path += c;
    }
    return path;
}

void checkPath(const std::string& text) {
    struct stat status;
    if (const auto found = platform::resolveExisting(text)) {
        require(lstat(found->c_str(), &status) == 0 && found->find('\0') == std::string::npos);
        require(folded(*found) == folded(text));
        require(platform::resolveExisting(*found) == found);
        // A link that leads nowhere is no place.
        require(stat(found->c_str(), &status) != 0 || platform::Place(text) == platform::Place(*found));
    }
    const std::string full = platform::fullPath(text);
    if (full == text)
        return;
    require(full.starts_with('/') && (full + '/').find("/./") == std::string::npos &&
            (full + '/').find("/../") == std::string::npos && full.find("//") == std::string::npos);
    require(lstat(full.c_str(), &status) != 0 || platform::fullPath(full) == full);
}

void checkReferences(const std::string& text) {
    const std::string expanded = platform::expandEnvironmentReferences(text);
    require(expanded == text || !platform::IsRemotePath(expanded));
    require(expanded == text || expanded.size() <= platform::kLongestExpansion);
    require(!platform::IsRemotePath(text) || expanded == text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Tree tree;
    const std::string text(fuzz::textOf(data, size));
    checkPath(text);
    checkPath(tree.directory() + '/' + text);
    checkReferences(text);
    return 0;
}
