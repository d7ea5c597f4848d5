#include "platform/homedirectory.h"

#include "platform/environment.h"

#include <pwd.h>
#include <unistd.h>

#include <vector>

namespace platform {

std::optional<std::string> homeDirectory(const std::string& user) {
    if (user.empty()) {
        auto home = environmentVariable("HOME");
        if (home && !home->empty())
            return home;
    }
    std::vector<char> texts(16384);
    struct passwd entry;
    struct passwd* found = nullptr;
    if (user.empty())
        getpwuid_r(geteuid(), &entry, texts.data(), texts.size(), &found);
    else
        getpwnam_r(user.c_str(), &entry, texts.data(), texts.size(), &found);
    return found ? std::optional<std::string>(found->pw_dir) : std::nullopt;
}

} // namespace platform
