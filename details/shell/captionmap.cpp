#include "details/shell/captionmap.h"

#include "details/shell/stringtable.h"

#include <algorithm>
#include <cctype>

namespace ovsettings {

namespace {

std::string upperCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return text;
}

} // namespace

void CCaptionMap::setLanguages(unsigned keyLanguage, unsigned captionLanguage) {
    keyLanguage_ = keyLanguage;
    captionLanguage_ = captionLanguage;
}

void CCaptionMap::load(unsigned firstId, unsigned lastId) {
    for (unsigned id = firstId; id <= lastId; ++id) {
        const auto key = loadString(id, keyLanguage_);
        const auto caption = loadString(id, captionLanguage_);
        if (key && caption)
            captions_.insert_or_assign(upperCase(*key), *caption);
    }
}

std::string CCaptionMap::translate(const std::string& text) const {
    const auto found = captions_.find(upperCase(text));
    return found == captions_.end() ? text : found->second;
}

} // namespace ovsettings
