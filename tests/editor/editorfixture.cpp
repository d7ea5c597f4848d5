#include "tests/editor/editorfixture.h"

void EditorPages::loadAsWritten(const std::vector<Entry>& entries) {
    std::string settings;
    for (const Entry& entry : entries)
        settings += testsupport::setting(entry.key, entry.value, entry.locked);
    loadSections(settings);
}

void EditorPages::load(const std::vector<Entry>& entries) {
    loadAsWritten(entries);
    for (const Entry& entry : entries)
        ASSERT_EQ(stored(entry.key), entry.value) << "the file is not read as meant";
}

std::string EditorPages::stored(const std::string& key) const {
    std::string value;
    Orv::getValue(appConfig_, key, value);
    return value;
}
