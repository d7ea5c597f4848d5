#include "app/output.h"

#include "platform/printable.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <unistd.h>

#include <algorithm>
#include <ostream>

namespace app {

std::string forOutput(std::string_view line) {
    static const bool isTerminal = isatty(STDOUT_FILENO) != 0;
    return isTerminal ? platform::printable(line) : std::string(line);
}

void writeJson(std::ostream& out, const QJsonArray& rows) {
    const QByteArray text = QJsonDocument(rows).toJson(QJsonDocument::Indented);
    std::string_view rest(text.constData(), static_cast<std::size_t>(text.size()));
    while (!rest.empty()) {
        const std::size_t length = std::min(rest.find('\n'), rest.size());
        out << forOutput(rest.substr(0, length)) << '\n';
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
}

} // namespace app
