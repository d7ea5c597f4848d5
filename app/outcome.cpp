#include "app/outcome.h"

#include "app/columns.h"

#include <iostream>

namespace app {

int refuse(std::string_view reason) {
    std::cout.flush();
    std::cerr << "orvane-settings: " << printable(std::string(reason)) << std::endl;
    return kRefused;
}

int misuse(std::string_view reason) {
    std::cerr << "orvane-settings: " << printable(std::string(reason))
              << " (orvane-settings --help tells more)" << std::endl;
    return kMisuse;
}

} // namespace app
