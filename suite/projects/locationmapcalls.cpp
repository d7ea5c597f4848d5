#include "suite/locationmap.h"

#include "suite/projects/locationbuffer.h"
#include "suite/projects/softnames.h"

#include <memory>
#include <mutex>

namespace {

using suite::SoftNames;

constexpr int kWritten = 0;
constexpr int kNotWritten = 1;

/// The process's map. Any thread may ask it, while another call prepares it anew.
class CurrentMap {
public:
    void set(SoftNames map) {
        const std::lock_guard guard(mutex_);
        map_ = std::make_shared<const SoftNames>(std::move(map));
    }

    std::shared_ptr<const SoftNames> get() {
        const std::lock_guard guard(mutex_);
        if (!map_)
            map_ = std::make_shared<const SoftNames>(SoftNames::ofProject({}));
        return map_;
    }

private:
    std::mutex mutex_;
    std::shared_ptr<const SoftNames> map_;
};

CurrentMap& currentMap() {
    static CurrentMap map;
    return map;
}

} // namespace

extern "C" {

int InitLocationMap(const char* projectPath, int) {
    currentMap().set(SoftNames::ofProject(projectPath ? projectPath : ""));
    return 0;
}

int GetHardName(const char* name, char* buffer) {
    if (!name || !buffer || !SoftNames::isSoftName(name))
        return kNotWritten;
    const auto hard = currentMap().get()->hardName(name);
    if (hard)
        return suite::writeLocation(*hard, buffer) ? kWritten : kNotWritten;
    *buffer = '\0';
    return kNotWritten;
}

int GetSoftName(const char* path, char* buffer) {
    if (!path || !*path || !buffer)
        return kNotWritten;
    const auto soft = currentMap().get()->softName(path);
    return soft && suite::writeLocation(*soft, buffer) ? kWritten : kNotWritten;
}
}
