#include "suite/files/projectlog.h"

namespace suite {

ErrorLog& projectLog() {
    static ErrorLog log;
    return log;
}

} // namespace suite
