// The reader of a library's own file.

#include "suite/zec.h"

#include "fuzz/support.h"

using fuzz::require;

namespace {

constexpr std::string_view kBlanks = " \t\r\n\v\f";
constexpr std::size_t kLongestAlias = 255 - std::string_view("alias ").size();

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::File file("lib.cfg");
    const std::string_view text = fuzz::textOf(data, size);
    file.write(text);
    const std::string alias = ZECReadAlias(file.directory());
    if (alias.empty())
        return 0;
    require(alias.size() <= kLongestAlias);
    require(alias.find_first_of(std::string("\n\0", 2)) == std::string::npos);
    require(kBlanks.find(alias.back()) == std::string_view::npos);
    require(text.find("alias " + alias) != std::string_view::npos);
    return 0;
}
