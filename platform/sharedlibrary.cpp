#include "platform/sharedlibrary.h"

#include "platform/paths.h"

#include <algorithm>
#include <dlfcn.h>
#include <libintl.h>
#include <link.h>
#include <string_view>
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

constexpr int kMode = RTLD_NOW | RTLD_LOCAL;

/// What the loader says, in English or in the user's language, of a file that it does not find: the library,
/// or one that it needs.
bool saysNotFound(std::string_view reason) {
    constexpr char kNotFound[] = "cannot open shared object file";
    return reason.find(kNotFound) != std::string_view::npos ||
           reason.find(dgettext("libc", kNotFound)) != std::string_view::npos;
}

void* openExactly(const std::string& path, int mode, std::string& defect) {
    void* handle = dlopen(path.c_str(), mode);
    const char* reason = handle ? nullptr : dlerror();
    if (reason && !saysNotFound(reason))
        defect = reason;
    return handle;
}

void* open(const std::string& path, int mode, std::string& defect) {
    void* handle = openExactly(path, mode, defect);
    if (handle || isBareName(path))
        return handle;
    const auto onDisk = resolveExisting(path);
    return onDisk ? openExactly(*onDisk, mode, defect) : nullptr;
}

} // namespace

SharedLibrary::SharedLibrary(const std::string& name, Lifetime lifetime) {
    if (name.empty()) // the loader takes the empty name for the program itself
        return;
    const std::string path = platformPath(name);
    // The current directory may be a foreign project's. A drive letter is a relative name here, too.
    if (!isBareName(path) && !isRooted(path))
        return;
    const int mode = lifetime == Lifetime::process ? kMode | RTLD_NODELETE : kMode;
    handle_ = open(path, mode, defect_);
    if (!handle_ && endsWithoutCase(path, kForeignSuffix))
        handle_ = open(nativeName(path), mode, defect_);
    if (handle_)
        defect_.clear();
}

SharedLibrary::~SharedLibrary() {
    if (handle_)
        dlclose(handle_);
}

SharedLibrary::SharedLibrary(SharedLibrary&& other) noexcept
    : handle_(std::exchange(other.handle_, nullptr)), defect_(std::move(other.defect_)) {
}

SharedLibrary& SharedLibrary::operator=(SharedLibrary&& other) noexcept {
    std::swap(handle_, other.handle_);
    std::swap(defect_, other.defect_);
    return *this;
}

void SharedLibrary::keepInProcess() const {
    struct link_map* loaded = nullptr;
    if (!handle_ || dlinfo(handle_, RTLD_DI_LINKMAP, &loaded) != 0)
        return;
    if (void* again = dlopen(loaded->l_name, kMode | RTLD_NOLOAD | RTLD_NODELETE))
        dlclose(again);
}

void* SharedLibrary::symbol(const char* name) const {
    void* address = handle_ ? dlsym(handle_, name) : nullptr;
    struct link_map* own = nullptr;
    struct link_map* owner = nullptr;
    Dl_info info;
    // The loader also looks into the libraries that this one needs.
    const bool isOwn = address && dlinfo(handle_, RTLD_DI_LINKMAP, &own) == 0 &&
                       dladdr1(address, &info, reinterpret_cast<void**>(&owner), RTLD_DL_LINKMAP) != 0 &&
                       owner == own;
    return isOwn ? address : nullptr;
}

} // namespace platform
