#pragma once

#include <map>
#include <string>

namespace ovsettings {

/// From a category's English caption to the caption in the user's language; look-ups ignore the case of
/// ASCII.
class CCaptionMap {
public:
    /// @param keyLanguage     language id of the texts that are looked up, 1033 for US English.
    /// @param captionLanguage language id of the texts that are shown.
    void setLanguages(unsigned keyLanguage, unsigned captionLanguage);

    /// Enters the strings of the ids first to last that exist in both languages.
    void load(unsigned firstId, unsigned lastId);

    /// @return the translation, or the text itself if there is none.
    std::string translate(const std::string& text) const;

private:
    unsigned keyLanguage_ = 0;
    unsigned captionLanguage_ = 0;
    std::map<std::string, std::string> captions_; ///< keys in upper case
};

} // namespace ovsettings
