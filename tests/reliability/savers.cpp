#include "tests/reliability/savers.h"

#include "orv/appconfiguration.h"
#include "platform/profilefile.h"
#include "suite/configuration.h"
#include "suite/projectfile.h"

#include <sys/stat.h>

#include <cstdlib>

namespace saves {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

class StoreSaver : public Saver {
public:
    StoreSaver() {
        manager().SetErrorHandler([this](const std::string& message) { told_ += message + '\n'; });
    }
    ~StoreSaver() override { manager().SetErrorHandler({}); }

    bool load() override { return store_.load() && told_.empty(); }
    std::string value(const std::string& key) override {
        Orv::iAppConfiguration::Property property(key);
        return store_.getProperty(property) && !property.values.empty() ? property.values.front() : "";
    }
    Outcome save(const std::string& key, const std::string& value) override {
        told_.clear();
        Orv::iAppConfiguration::Property property(key);
        property.values = {value};
        const bool saved = store_.setProperty(property) && store_.save();
        return {saved && told_.empty(), told_};
    }

private:
    static Orv::IOvConfigurationManager& manager() { return Orv::IOvConfigurationManager::Instance(); }

    std::string told_;
    Orv::iAppConfiguration store_;
};

class ProjectSaver : public Saver {
public:
    explicit ProjectSaver(std::string path) : path_(std::move(path)) {
        project_.SetErrorHandler([this](const std::string& message) { told_ += message + '\n'; });
    }
    ~ProjectSaver() override { project_.SetErrorHandler({}); }

    bool load() override { return project_.openProjectFile(path_); }
    std::string value(const std::string& key) override { return project_.GetValue(kSection, key); }
    Outcome save(const std::string& key, const std::string& value) override {
        told_.clear();
        project_.SetValue(kSection, key, value);
        return {told_.empty(), told_};
    }

private:
    static constexpr const char* kSection = "DesignInfo";

    std::string path_;
    std::string told_;
    NProjectTools::CProjectFile project_;
};

class ProfileSaver : public Saver {
public:
    explicit ProfileSaver(const std::string& path) : file_(path) {}

    bool load() override { return static_cast<bool>(file_.load()); }
    std::string value(const std::string& key) override { return file_.get(kSection, key); }
    Outcome save(const std::string& key, const std::string& value) override {
        file_.set(kSection, key, value);
        const auto saved = file_.save();
        return {static_cast<bool>(saved), saved.errorText()};
    }

private:
    static constexpr const char* kSection = "PlanDraw";

    platform::ProfileFile file_;
};

const std::string kLongComment(20'000, 'c');

} // namespace

const std::array<Kind, 3> kKinds{
    Kind{"Store", "orvane.xml", "<configuration></configuration><!-- ", " -->\n",
         [](const std::string&) -> std::unique_ptr<Saver> {
             return std::make_unique<StoreSaver>();
         }},
    Kind{"Project", "board.prj", "[DesignInfo]\n; ", "\n[End]\nend=1\n",
         [](const std::string& path) -> std::unique_ptr<Saver> {
             return std::make_unique<ProjectSaver>(path);
         }},
    Kind{"Profile", "scripts.ini", "[PlanDraw]\n; ", "\n[End]\nend=1\n",
         [](const std::string& path) -> std::unique_ptr<Saver> {
             return std::make_unique<ProfileSaver>(path);
         }},
};

std::string nameOf(const testing::TestParamInfo<Kind>& info) {
    return info.param.name;
}

std::string textOf(int number) {
    return "number " + std::to_string(number) + (number % 2 == 0 ? "." : std::string(5000, '.'));
}

int numberOf(const std::string& text) {
    const int number = text.starts_with("number ") ? std::atoi(text.c_str() + 7) : -1;
    return text == textOf(number) ? number : -1;
}

bool isLongRun() {
    return std::getenv("OV_RELIABILITY_COUNT") != nullptr;
}

int count(int shortCount) {
    return isLongRun() ? std::atoi(std::getenv("OV_RELIABILITY_COUNT")) : shortCount;
}

double milliseconds(std::chrono::steady_clock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

SavedFile::SavedFile() {
    testsupport::writeFile(path(), GetParam().start + kLongComment + GetParam().end);
    fs::create_symlink(path(), link());
    EXPECT_TRUE(save(*loaded(), 0).saved);
    sample_ = testsupport::readFile(path());
    EXPECT_NE(sample_.find(textOf(0)), std::string::npos);
}

std::string SavedFile::bytes(int number) const {
    std::string whole = sample_;
    return whole.replace(whole.find(textOf(0)), textOf(0).size(), textOf(number));
}

void SavedFile::reset(int number) const {
    for (const auto& place : {directory_.path(), installation_.user()}) {
        for (const auto& entry : fs::directory_iterator(place))
            fs::remove_all(entry);
    }
    fs::create_symlink(path(), link());
    testsupport::writeFile(path(), bytes(number));
    chmod(path().c_str(), 0640);
}

std::unique_ptr<Saver> SavedFile::loaded() const {
    auto saver = GetParam().make(link().string());
    EXPECT_TRUE(saver->load());
    return saver;
}

void SavedFile::expectEither(int number, int other) const {
    const std::string now = testsupport::readFile(path());
    EXPECT_TRUE(now == bytes(number) || now == bytes(other)) << now.size() << " bytes are neither file";
    EXPECT_TRUE(fs::is_symlink(link())) << "the link became a file";
    EXPECT_EQ(fs::status(path()).permissions(), fs::perms(0640));
}

void SavedFile::expectNothingBeside() const {
    for (const auto& place : {directory_.path(), installation_.user()}) {
        for (const auto& entry : fs::directory_iterator(place)) {
            const auto name = entry.path().filename();
            EXPECT_TRUE(name == path().filename() || name == lockPath().filename()) << name;
        }
    }
}

void SavedFile::expectSave(int number) {
    const auto saver = loaded();
    const auto start = std::chrono::steady_clock::now();
    const Outcome outcome = save(*saver, number);
    const auto took = std::chrono::steady_clock::now() - start;
    longest_ = std::max(longest_, took);
    EXPECT_TRUE(outcome.saved) << outcome.told;
    // How long a disk takes to flush is not for a test to judge, but nothing that was killed is waited for.
    slow_ += took > 100ms;
    EXPECT_LT(took, 4s);
    expectEither(number, number);
    expectNothingBeside();
}

} // namespace saves
