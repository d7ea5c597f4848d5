#include "dialog/shell/stringtable.h"

#include "dialog/widgets/stringconversion.h"

#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QLocale>

#include <algorithm>
#include <iterator>

namespace ovsettings {

namespace {

struct Language {
    QLocale::Language language;
    unsigned id;
    const char* file;
};

/// One table for each language, whatever the country. It is meant, for users in other English-speaking
/// countries: they read the US English captions.
constexpr Language kLanguages[] = {
    {QLocale::English, kEnglish, ":/ovsettings/strings/en.json"},
    {QLocale::Japanese, 1041, ":/ovsettings/strings/ja.json"},
};

QJsonObject readTable(const char* file) {
    QFile resource(QString::fromLatin1(file));
    if (!resource.open(QIODevice::ReadOnly))
        return {};
    return QJsonDocument::fromJson(resource.readAll()).object();
}

const QJsonObject* tableOf(unsigned languageId) {
    static QJsonObject tables[std::size(kLanguages)];
    for (std::size_t i = 0; i < std::size(kLanguages); ++i) {
        if (kLanguages[i].id != languageId)
            continue;
        if (tables[i].isEmpty())
            tables[i] = readTable(kLanguages[i].file);
        return &tables[i];
    }
    return nullptr;
}

} // namespace

std::optional<std::string> loadString(unsigned id, unsigned languageId) {
    const QJsonObject* table = tableOf(languageId);
    const QJsonValue text = table ? table->value(QString::number(id)) : QJsonValue();
    if (!text.isString())
        return std::nullopt;
    return toUtf8(text.toString());
}

unsigned lastStringId(unsigned languageId) {
    const QJsonObject* table = tableOf(languageId);
    unsigned last = 0;
    for (const QString& id : table ? table->keys() : QStringList())
        last = std::max(last, id.toUInt());
    return last;
}

unsigned userLanguageId() {
    const QLocale::Language language = QLocale().language();
    for (const Language& known : kLanguages) {
        if (known.language == language)
            return known.id;
    }
    return 0;
}

std::string stringForUser(unsigned id) {
    const auto inLanguage = loadString(id, userLanguageId());
    return inLanguage ? *inLanguage : loadString(id, kEnglish).value_or("");
}

} // namespace ovsettings
