#include "dialog/pages/startup/scriptsini.h"

#include "dialog/shell/stringtable.h"
#include "platform/paths.h"
#include "platform/profilefile.h"

#include <algorithm>
#include <cerrno>
#include <optional>
#include <string_view>

namespace ovsettings {

namespace {

constexpr std::string_view kSection = "PlanDraw";

} // namespace

void ScriptsIni::setUp(const std::string& fileName, unsigned prefixId) {
    fileName_ = fileName;
    // Part of the file's format, and so the same for users of all languages.
    prefix_ = loadString(prefixId, kEnglish).value_or("");
    count_ = 0;
}

void ScriptsIni::read(std::vector<std::string>& list) {
    platform::ProfileFile file(fileName_);
    readable_ = hasDirectory() && file.load();
    list.clear();
    count_ = 0;
    std::string value;
    do {
        value = file.get(kSection, key(count_));
        if (!value.empty())
            list.push_back(value);
        ++count_;
    } while (!value.empty());
}

bool ScriptsIni::write(const std::vector<std::string>& list, std::chrono::milliseconds& patience) {
    if (!hasDirectory())
        return std::all_of(list.begin(), list.end(), [](const std::string& value) { return value.empty(); });
    if (!readable_)
        return false;
    platform::ProfileFile file(fileName_);
    bool written = static_cast<bool>(file.load());
    count_ = std::max(count_, static_cast<int>(list.size()));
    for (int index = 0; index < count_; ++index) {
        std::optional<std::string_view> value;
        if (const auto position = static_cast<std::size_t>(index);
            position < list.size() && !list[position].empty())
            value = list[position];
        if (!file.set(kSection, key(index), value))
            written = false;
    }
    const auto saved = file.save(patience);
    if (saved.code() == ETIMEDOUT)
        patience = std::chrono::milliseconds::zero();
    return written && saved;
}

/// Without a user's directory the name is that of a file in the root of the file system, which is nobody's.
bool ScriptsIni::hasDirectory() const {
    return !platform::splitPath(fileName_).directory.empty();
}

std::string ScriptsIni::key(int index) const {
    return prefix_ + '#' + std::to_string(index);
}

} // namespace ovsettings
