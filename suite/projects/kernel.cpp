#include "suite/kernel.h"

#include "platform/paths.h"
#include "suite/projects/locationbuffer.h"
#include "suite/projects/softnames.h"

#include <filesystem>
#include <system_error>

using suite::SoftNames;

struct KernelContext {
    SoftNames map;
};

extern "C" {

KernelContext* KernelOpenContext(const char* projectPath) {
    const auto path = platform::resolveExisting(projectPath ? projectPath : "");
    if (!path || !platform::isFile(*path))
        return nullptr;
    return new KernelContext{SoftNames::ofProject(*path)};
}

int KernelResolveName(const char* name, char* buffer, KernelContext* context) {
    if (!name || !*name || !buffer || !context)
        return 0;
    const auto path = context->map.realPath(name);
    if (!path)
        return 0;
    const std::string full = context->map.fullPathOfReal(*path);
    // A path of the standard library takes many times the memory of its text.
    if (full.size() > platform::kLongestPath)
        return 0;
    std::error_code missing;
    return std::filesystem::exists(full, missing) && suite::writeLocation(full, buffer);
}

void KernelCloseContext(KernelContext** context) {
    if (!context)
        return;
    delete *context;
    *context = nullptr;
}
}
