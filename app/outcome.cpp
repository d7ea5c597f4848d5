#include "app/outcome.h"

#include "platform/printable.h"

#include <iostream>

namespace app {

int refuse(std::string_view reason) {
    std::cout.flush();
    platform::tell("orvane-settings: " + std::string(reason));
    return kRefused;
}

int misuse(std::string_view reason) {
    platform::tell("orvane-settings: " + std::string(reason) + " (orvane-settings --help tells more)");
    return kMisuse;
}

} // namespace app
