#include "app/output.h"

#include "platform/printable.h"

#include <nlohmann/json.hpp>

#include <unistd.h>

#include <algorithm>
#include <ostream>

namespace app {

std::string forOutput(std::string_view line) {
    static const bool isTerminal = isatty(STDOUT_FILENO) != 0;
    return isTerminal ? platform::printable(line) : std::string(line);
}

void writeJson(std::ostream& out, const nlohmann::json& rows) {
    const std::string text = rows.dump(4, ' ', false, nlohmann::json::error_handler_t::replace);
    std::string_view rest = text;
    while (!rest.empty()) {
        const std::size_t length = std::min(rest.find('\n'), rest.size());
        out << forOutput(rest.substr(0, length)) << '\n';
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
}

} // namespace app
