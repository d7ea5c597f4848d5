#include "details/platform/sharedlibrary.h"

#include "details/platform/paths.h"

#include <algorithm>
#include <dlfcn.h>
#include <utility>

namespace platform {

namespace {

constexpr char kForeignSuffix[] = ".dll";

bool endsWithoutCase(const std::string& text, const std::string& suffix) {
    return text.size() > suffix.size() &&
           std::equal(suffix.rbegin(), suffix.rend(), text.rbegin(),
                      [](char a, char b) { return a == (b >= 'A' && b <= 'Z' ? b - 'A' + 'a' : b); });
}

std::string nativeName(const std::string& path) {
    const auto nameBegin = path.rfind('/') + 1;
    const auto nameLength = path.size() - nameBegin - (sizeof kForeignSuffix - 1);
    return path.substr(0, nameBegin) + "lib" + path.substr(nameBegin, nameLength) + ".so";
}

void* openExactly(const std::string& path) {
    return dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
}

void* open(const std::string& path) {
    void* handle = openExactly(path);
    if (handle || isBareName(path))
        return handle;
    const auto onDisk = resolveExisting(path);
    return onDisk ? openExactly(*onDisk) : nullptr;
}

} // namespace

SharedLibrary::SharedLibrary(const std::string& name) {
    if (name.empty()) // the loader takes the empty name for the program itself
        return;
    const std::string path = platformPath(name);
    handle_ = open(path);
    if (!handle_ && endsWithoutCase(path, kForeignSuffix))
        handle_ = open(nativeName(path));
}

SharedLibrary::~SharedLibrary() {
    if (handle_)
        dlclose(handle_);
}

SharedLibrary::SharedLibrary(SharedLibrary&& other) noexcept
    : handle_(std::exchange(other.handle_, nullptr)) {
}

SharedLibrary& SharedLibrary::operator=(SharedLibrary&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
}

void* SharedLibrary::symbol(const char* name) const {
    return handle_ ? dlsym(handle_, name) : nullptr;
}

} // namespace platform
