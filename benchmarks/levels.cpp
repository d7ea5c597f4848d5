#include "benchmarks/levels.h"

#include "orv/appconfiguration.h"

#include <linux/magic.h>
#include <sys/vfs.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace bench {

namespace {

constexpr int kChangedKeys = 30;

std::filesystem::path makeDirectory() {
    const char* chosen = std::getenv("TMPDIR");
    std::string pattern = std::string(chosen ? chosen : "/var/tmp") + "/ovbench.XXXXXX";
    if (!mkdtemp(pattern.data()))
        throw std::runtime_error("no temporary directory: " + pattern);
    struct statfs status;
    if (statfs(pattern.c_str(), &status) == 0 && status.f_type == TMPFS_MAGIC) {
        std::filesystem::remove(pattern);
        throw std::runtime_error(pattern + " is not on a disk; set TMPDIR to a directory that is");
    }
    return pattern;
}

void writeText(const std::filesystem::path& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    if (!file.flush())
        throw std::runtime_error("cannot write " + path.string());
}

bool isLocked(const Orv::iAppConfiguration::Property& property) {
    for (const auto flag : property.readonly) {
        if (flag != 0)
            return true;
    }
    return property.values.empty();
}

/// Another value that means something for every kind of property.
std::string changed(const std::string& text) {
    return text == "1" ? "0" : "1";
}

void changeSomeKeys() {
    Orv::iAppConfiguration configuration;
    if (!configuration.load())
        throw std::runtime_error("the benchmark's own installation does not load");
    const auto keys = configuration.keys();
    const std::size_t step = keys.size() / kChangedKeys;
    for (std::size_t i = 0; i < keys.size(); i += step) {
        Orv::iAppConfiguration::Property property(keys[i]);
        if (!configuration.getProperty(property) || isLocked(property))
            continue;
        property.values.front() = changed(property.values.front());
        configuration.setProperty(property);
    }
    configuration.save();
}

void enlarge(const std::filesystem::path& path, int size) {
    std::string text = readText(path);
    const std::size_t wanted = text.size() * static_cast<std::size_t>(size);
    constexpr std::string_view kSection = "<section path=\"Orvane/SETTINGS\">";
    const auto place = text.find(kSection);
    std::string added;
    for (int i = 0; text.size() + added.size() < wanted; ++i) {
        const std::string number = std::to_string(i);
        added += "\n        <value name=\"ANOTHER_PROGRAM_SETTING_" + number + "\">" + number + "</value>";
    }
    writeText(path, text.insert(place + kSection.size(), added));
}

void repeatCategories(const std::filesystem::path& path, int times) {
    constexpr std::string_view kOpen = "<settings>";
    const std::string text = readText(path);
    const auto begin = text.find(kOpen) + kOpen.size();
    const auto end = text.find("</settings>", begin);
    std::string repeated = text.substr(0, begin);
    for (int i = 0; i < times; ++i)
        repeated.append(text, begin, end - begin);
    writeText(path, repeated.append(text, end));
}

} // namespace

std::string readText(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

Levels::Levels(int size, int categories) : root_(makeDirectory()) {
    const auto home = root_ / "home";
    std::filesystem::copy(OV_INSTALLATION, home, std::filesystem::copy_options::recursive);
    std::filesystem::create_directory(root_ / "user");
    setenv("RSR_HOME", home.c_str(), 1);
    setenv("WDIR", ((root_ / "user").string() + ";" + (home / "site").string()).c_str(), 1);
    changeSomeKeys();
    for (const auto& file : files())
        enlarge(file, size);
    repeatCategories(home / "standard" / "settings.xml", categories);
}

Levels::~Levels() {
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
}

std::array<std::filesystem::path, 3> Levels::files() const {
    const auto file = [this](const char* directory) {
        return root_ / directory / "orvane.xml";
    };
    return {file("home/standard"), file("home/site"), file("user")};
}

void Levels::renew() const {
    for (const auto& file : files()) {
        std::string text = readText(file);
        const bool endsInLine = text.back() == '\n';
        text.erase(text.rfind('>') + 1).append(1, endsInLine ? ' ' : '\n');
        writeText(file, text);
        static_cast<void>(readText(file)); // which is what would find it in the page cache otherwise
    }
}

std::string atSize(const std::string& name, int size) {
    return size == 1 ? name : name + ", " + std::to_string(size) + " times the size";
}

} // namespace bench
