// A program that lies beside a module that must not be used, while the loader's path has a complete one.

#include "details/platform/remotefile.h"

#include <cstdlib>

int main() {
    return platform::ProbeRemote("http://127.0.0.1:1/") == static_cast<int>(platform::PathKind::file)
               ? EXIT_SUCCESS
               : EXIT_FAILURE;
}
