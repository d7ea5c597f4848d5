#include "platform/nameservices.h"

#include "platform/readfile.h"

#include <dlfcn.h>

#include <sstream>
#include <string>

namespace platform {

namespace {

constexpr char kConfiguration[] = "/etc/nsswitch.conf";

/// The modules of one database, as in "hosts: files mdns4_minimal [NOTFOUND=return] dns".
void loadServices(std::istringstream words) {
    for (std::string service; words >> service;) {
        if (service.front() == '#')
            return;
        // What the C library has built in is no file, and an action in brackets no service.
        if (service.find_first_of("/[]=") == std::string::npos)
            dlopen(("libnss_" + service + ".so.2").c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    }
}

} // namespace

void loadNameServices() {
    const auto bytes = readFile(kConfiguration);
    if (!bytes)
        return;
    std::istringstream lines(*bytes);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string database;
        words >> database;
        if (database == "passwd:" || database == "hosts:")
            loadServices(std::move(words));
    }
}

} // namespace platform
