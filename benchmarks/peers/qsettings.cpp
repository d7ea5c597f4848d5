#include "benchmarks/peers/qsettings.h"

#include <QtCore/QSettings>
#include <QtCore/QStringList>

#include <optional>

namespace bench {

namespace {

constexpr const char* kOrganisation = "orvane";
constexpr const char* kApplication = "settings";

QString toQString(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}

class QSettingsPeer : public Peer {
public:
    explicit QSettingsPeer(const std::filesystem::path& directory) : directory_(directory) {
        std::filesystem::create_directories(directory / "user" / kOrganisation);
        std::filesystem::create_directories(directory / "system" / kOrganisation);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, toQString(directory / "user"));
        QSettings::setPath(QSettings::IniFormat, QSettings::SystemScope, toQString(directory / "system"));
    }

    std::string name() const override { return "QSettings"; }
    bool knowsLocks() const override { return false; }

    std::array<std::filesystem::path, 3> files() const override {
        return {directory_ / "system/orvane.ini", directory_ / "system/orvane/settings.ini",
                directory_ / "user/orvane/settings.ini"};
    }

    void write(const Statements& statements) override {
        for (std::size_t level = 0; level < statements.size(); ++level)
            writeLevel(files()[level], statements[level]);
        settings_.emplace(QSettings::IniFormat, QSettings::UserScope, QLatin1String(kOrganisation),
                          QLatin1String(kApplication));
    }

    void load() override {
        settings_->sync();
        // Files are read by now, and parsed at the first question.
        settings_->contains(QStringLiteral("no such key"));
    }

    void setNumberAndSave(const std::string& key, int value) override {
        settings_->setValue(QString::fromStdString(key), value);
        settings_->sync();
    }

    std::vector<std::string> values(const std::string& key, bool isList) override {
        const QVariant value = settings_->value(QString::fromStdString(key));
        if (!isList)
            return {value.toString().toStdString()};
        std::vector<std::string> texts;
        for (const QString& text : value.toStringList())
            texts.push_back(text.toStdString());
        return texts;
    }

    bool isLocked(const std::string&) override { return false; }

    void chooseReads(const std::vector<std::string>& keys) override {
        reads_.clear();
        for (const auto& key : keys)
            reads_.push_back(QString::fromStdString(key));
    }

    float sumOfNumbers() override {
        float sum = 0;
        for (const auto& key : reads_)
            sum += settings_->value(key).toFloat();
        return sum;
    }

    unsigned sumOfGraphics() override {
        unsigned sum = 0;
        for (const auto& key : reads_) {
            const QStringList fields = settings_->value(key).toStringList();
            for (int field = 0; field < kGraphicsFields; ++field) {
                const auto number = static_cast<unsigned>(fields.value(field).toInt(nullptr, 0));
                sum += field == kColorField ? packedColor(number) : number;
            }
        }
        return sum;
    }

    void chooseList(const std::vector<Statement>& keys) override {
        listed_.clear();
        for (const auto& statement : keys)
            listed_.push_back({QString::fromStdString(statement.key), statement.isList});
    }

    Listed list() override { return countOf(listOf(*settings_, Keys::all)); }

    Listed listWithLevels() override {
        Listed counted = list();
        for (const auto& file : files())
            counted.statements +=
                listOf(QSettings(toQString(file), QSettings::IniFormat), Keys::stated).size();
        return counted;
    }

private:
    enum class Keys { all, stated };
    struct Key {
        QString name;
        bool isList;
    };
    struct Entry {
        QString key;
        QString value;
        QStringList values;
    };

    void writeLevel(const std::filesystem::path& file, const std::vector<Statement>& statements) {
        QSettings settings(toQString(file), QSettings::IniFormat);
        for (const auto& statement : statements) {
            QStringList texts;
            for (const auto& value : statement.values)
                texts.append(QString::fromStdString(value));
            settings.setValue(QString::fromStdString(statement.key),
                              statement.isList ? QVariant(texts) : QVariant(texts.front()));
        }
    }

    std::vector<Entry> listOf(const QSettings& settings, Keys which) const {
        std::vector<Entry> entries;
        entries.reserve(listed_.size());
        for (const auto& [key, isList] : listed_) {
            if (which == Keys::stated && !settings.contains(key))
                continue;
            const QVariant value = settings.value(key);
            entries.push_back(
                {key, isList ? QString() : value.toString(), isList ? value.toStringList() : QStringList()});
        }
        return entries;
    }

    Listed countOf(const std::vector<Entry>& entries) const {
        Listed counted;
        for (std::size_t i = 0; i < entries.size(); ++i)
            counted.values += listed_[i].isList ? static_cast<std::size_t>(entries[i].values.size()) : 1;
        return counted;
    }

    std::filesystem::path directory_;
    std::optional<QSettings> settings_;
    std::vector<QString> reads_;
    std::vector<Key> listed_;
};

} // namespace

std::unique_ptr<Peer> makeQSettingsPeer(const std::filesystem::path& directory) {
    return std::make_unique<QSettingsPeer>(directory);
}

} // namespace bench
