#include "dialog/pages/borders/borderproperties.h"

#include "dialog/widgets/stringconversion.h"

#include <map>
#include <set>
#include <string>
#include <utility>

namespace ovsettings {

namespace {

using Properties = BorderProperties::Properties;

/// A text as a widget gives it back. It may differ from the stored bytes although the user changed nothing.
std::string shown(const std::string& text) {
    return toUtf8(toQString(text));
}

Properties merged(Properties stored, const Attributes& edited) {
    std::multimap<std::string, std::size_t> indices;
    for (std::size_t index = 0; index < stored.size(); ++index)
        indices.emplace(shown(stored[index].first), index);
    for (const auto& [name, value] : edited) {
        const auto found = indices.lower_bound(name);
        if (found == indices.end() || found->first != name) {
            stored.emplace_back(name, value);
            continue;
        }
        std::string& present = stored[found->second].second;
        if (shown(present) != value)
            present = value;
        indices.erase(found);
    }
    return stored;
}

} // namespace

Properties BorderProperties::laidOver(Properties stored) const {
    return merged(std::move(stored), changes_);
}

bool BorderProperties::take(const Properties& stored, const Attributes& edited) {
    const Properties before = laidOver(stored);
    const Properties after = merged(before, edited);
    if (after == before)
        return false;
    std::set<std::string> changed;
    for (std::size_t index = 0; index < after.size(); ++index) {
        if (index >= stored.size() || after[index] != stored[index])
            changed.insert(shown(after[index].first));
    }
    changes_.clear();
    for (const auto& [name, value] : after) {
        if (changed.contains(shown(name)))
            changes_.emplace_back(shown(name), value);
    }
    return true;
}

} // namespace ovsettings
