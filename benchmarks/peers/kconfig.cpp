// KConfig, which knows nothing of the program's Qt.

#include "benchmarks/peers/peer.h"

#include <KConfig>
#include <KConfigGroup>

#include <fstream>
#include <memory>
#include <optional>
#include <sstream>

namespace bench {

namespace {

constexpr const char* kGroup = "Settings";

QString toQString(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}

/// There is no call that locks a key; administrators write the mark into the file.
void markLocks(const std::filesystem::path& path, const std::vector<Statement>& statements) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    std::string text = bytes.str();
    for (const auto& statement : statements) {
        if (statement.isLocked)
            text.insert(text.find("\n" + statement.key + "=") + 1 + statement.key.size(), "[$i]");
    }
    std::ofstream(path, std::ios::binary) << text;
}

class KConfigPeer : public Peer {
public:
    explicit KConfigPeer(const std::filesystem::path& directory)
        : files_{directory / "installationrc", directory / "siterc", directory / "userrc"} {
        std::filesystem::create_directories(directory);
    }

    std::string name() const override { return "KConfig"; }
    bool knowsLocks() const override { return true; }
    std::array<std::filesystem::path, 3> files() const override { return files_; }

    void write(const Statements& statements) override {
        for (std::size_t level = 0; level < files_.size(); ++level) {
            writeLevel(files_[level], statements[level]);
            markLocks(files_[level], statements[level]);
        }
        config_.emplace(toQString(files_[2]), KConfig::NoGlobals);
        config_->addConfigSources({toQString(files_[0]), toQString(files_[1])});
        group_ = config_->group(kGroup);
    }

    void load() override { config_->reparseConfiguration(); }

    void setNumberAndSave(const std::string& key, int value) override {
        group_.writeEntry(key.c_str(), value);
        config_->sync();
    }

    std::vector<std::string> values(const std::string& key, bool isList) override {
        if (!isList)
            return {group_.readEntry(key.c_str(), QString()).toStdString()};
        std::vector<std::string> texts;
        for (const QString& text : group_.readEntry(key.c_str(), QStringList()))
            texts.push_back(text.toStdString());
        return texts;
    }

    bool isLocked(const std::string& key) override { return group_.isEntryImmutable(key.c_str()); }

    void chooseReads(const std::vector<std::string>& keys) override { reads_ = keys; }

    float sumOfNumbers() override {
        float sum = 0;
        for (const auto& key : reads_)
            sum += group_.readEntry(key.c_str(), 0.0F);
        return sum;
    }

    unsigned sumOfGraphics() override {
        unsigned sum = 0;
        for (const auto& key : reads_) {
            const QStringList fields = group_.readEntry(key.c_str(), QStringList());
            for (int field = 0; field < kGraphicsFields; ++field) {
                const unsigned number = static_cast<unsigned>(fields.value(field).toInt(nullptr, 0));
                sum += field == kColorField ? packedColor(number) : number;
            }
        }
        return sum;
    }

    void chooseList(const std::vector<Statement>& keys) override { listed_ = keys; }

    Listed list() override { return countOf(listOf(group_, Keys::all)); }

    Listed listWithLevels() override {
        Listed counted = list();
        for (const auto& file : files_) {
            const KConfig level(toQString(file), KConfig::SimpleConfig);
            const KConfigGroup group = level.group(kGroup);
            counted.statements += listOf(group, Keys::stated).size();
        }
        return counted;
    }

private:
    enum class Keys { all, stated };
    struct Entry {
        const char* key;
        QString value;
        QStringList values;
        bool isLocked;
    };

    void writeLevel(const std::filesystem::path& file, const std::vector<Statement>& statements) {
        KConfig config(toQString(file), KConfig::SimpleConfig);
        KConfigGroup group = config.group(kGroup);
        for (const auto& statement : statements) {
            QStringList texts;
            for (const auto& value : statement.values)
                texts.append(QString::fromStdString(value));
            if (statement.isList)
                group.writeEntry(statement.key.c_str(), texts);
            else
                group.writeEntry(statement.key.c_str(), texts.front());
        }
        config.sync();
    }

    std::vector<Entry> listOf(const KConfigGroup& group, Keys which) const {
        std::vector<Entry> entries;
        entries.reserve(listed_.size());
        for (const auto& statement : listed_) {
            const char* key = statement.key.c_str();
            if (which == Keys::stated && !group.hasKey(key))
                continue;
            if (statement.isList)
                entries.push_back(
                    {key, {}, group.readEntry(key, QStringList()), group.isEntryImmutable(key)});
            else
                entries.push_back({key, group.readEntry(key, QString()), {}, group.isEntryImmutable(key)});
        }
        return entries;
    }

    Listed countOf(const std::vector<Entry>& entries) const {
        Listed counted;
        for (std::size_t i = 0; i < entries.size(); ++i) {
            counted.values += listed_[i].isList ? static_cast<std::size_t>(entries[i].values.size()) : 1;
            counted.locks += entries[i].isLocked;
        }
        return counted;
    }

    std::array<std::filesystem::path, 3> files_;
    std::optional<KConfig> config_;
    KConfigGroup group_;
    std::vector<std::string> reads_;
    std::vector<Statement> listed_;
};

} // namespace

} // namespace bench

extern "C" __attribute__((visibility("default"))) bench::Peer* makePeer(const char* directory) {
    return std::make_unique<bench::KConfigPeer>(directory).release();
}
