#include "suite/help/helpbook.h"

#include "platform/installation.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace helpbook {

namespace {

std::optional<QString> findEntry(const QDir& directory, const QString& name, QDir::Filters kind) {
    const QStringList entries = directory.entryList(kind, QDir::Name);
    if (entries.contains(name))
        return directory.filePath(name);
    for (const QString& entry : entries) {
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            return directory.filePath(entry);
    }
    return std::nullopt;
}

} // namespace

bool isPlainName(const QString& name) {
    return !name.isEmpty() && name != QLatin1String(".") && !name.contains(QLatin1String("..")) &&
           !name.contains(QLatin1Char('/')) && !name.contains(QLatin1Char('\\')) &&
           !name.contains(QChar(u'\0'));
}

std::optional<QString> findBook(const QString& book) {
    const std::string home = platform::installationDirectory();
    if (home.empty() || !isPlainName(book))
        return std::nullopt;
    const QDir help(QDir(QString::fromStdString(home)).filePath(QStringLiteral("standard/help")));
    const auto found = findEntry(help, book, QDir::Dirs | QDir::NoDotAndDotDot);
    return found ? std::optional(QFileInfo(*found).canonicalFilePath()) : std::nullopt;
}

std::optional<QString> findTopic(const QString& bookDirectory, const QString& topic) {
    return findEntry(QDir(bookDirectory), topic + QStringLiteral(".html"), QDir::Files);
}

std::optional<QString> findLinked(const QString& bookDirectory, const QString& file) {
    const QFileInfo linked(file);
    const auto found = findEntry(linked.dir(), linked.fileName(), QDir::Files);
    if (!found || !found->endsWith(QLatin1String(".html"), Qt::CaseInsensitive))
        return std::nullopt;
    const QString page = QFileInfo(*found).canonicalFilePath();
    return page.startsWith(bookDirectory + QLatin1Char('/')) ? std::optional(page) : std::nullopt;
}

} // namespace helpbook
