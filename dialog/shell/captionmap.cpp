#include "dialog/shell/captionmap.h"

#include "dialog/shell/stringtable.h"
#include "platform/asciicase.h"

namespace ovsettings {

void CCaptionMap::setLanguages(unsigned keyLanguage, unsigned captionLanguage) {
    keyLanguage_ = keyLanguage;
    captionLanguage_ = captionLanguage;
}

void CCaptionMap::load(unsigned firstId, unsigned lastId) {
    for (unsigned id = firstId; id <= lastId; ++id) {
        const auto key = loadString(id, keyLanguage_);
        const auto caption = loadString(id, captionLanguage_);
        if (key && caption)
            captions_.insert_or_assign(platform::inUpperCase(*key), *caption);
    }
}

std::string CCaptionMap::translate(const std::string& text) const {
    const auto found = captions_.find(platform::inUpperCase(text));
    return found == captions_.end() ? text : found->second;
}

} // namespace ovsettings
