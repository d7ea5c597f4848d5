#include "dialog/shell/tellhost.h"

#include "platform/printable.h"
#include "suite/configuration.h"

namespace ovsettings {

void tellHost(const std::string& trouble) {
    Orv::IOvConfigurationManager::Instance().ReportError(platform::printable(trouble));
}

} // namespace ovsettings
