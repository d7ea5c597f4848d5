#include "platform/componentregistry.h"

#include "platform/asciicase.h"
#include "platform/paths.h"
#include "platform/profiledocument.h"
#include "platform/readfile.h"
#include "platform/writtenplace.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

namespace platform {

namespace {

/// "#" stands for a hexadecimal digit, any other character for itself.
constexpr std::string_view kClassIdForm = "{########-####-####-####-############}";

bool isHexadecimal(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F');
}

} // namespace

std::optional<std::string> parseClassId(std::string_view text) {
    const std::string id = inUpperCase(std::string(text));
    const bool fits = std::ranges::equal(
        id, kClassIdForm, [](char c, char form) { return form == '#' ? isHexadecimal(c) : c == form; });
    return fits ? std::optional(id) : std::nullopt;
}

Result<std::string> findComponent(const std::string& home, const std::string& classId) {
    // Not by MakeFilePath: where there is no installation, the current directory is none either.
    const std::string directory = home + "/standard/components";
    const auto file = resolveExisting(MakeFilePath(directory, classId, "ini"));
    if (!file)
        return std::string();
    const auto bytes = readFile(*file);
    if (!bytes)
        return bytes.error();
    const std::string name = ProfileDocument(*bytes).value("Component", "Library").value_or("");
    if (name.empty())
        return Error{*file, "names no library"};
    std::error_code error;
    const auto found = resolveExisting(MakeFilePath(directory, platformPath(name)));
    const auto library = std::filesystem::canonical(found.value_or(MakeFilePath(directory, name)), error);
    if (error)
        return Error{*file, name + ": " + error.message()};
    if (!isBelow(library.string(), home))
        return Error{*file, name + " lies outside of the installation"};
    return library.string();
}

} // namespace platform
