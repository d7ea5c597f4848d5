#include "tests/editor/editorfixture.h"

void EditorPages::loadAsWritten(const std::vector<Entry>& entries) {
    std::string values;
    for (const Entry& entry : entries) {
        values += "<value name=\"" + entry.key + "\"" + (entry.locked ? " locked=\"yes\"" : "") + ">" +
                  entry.value + "</value>";
    }
    loadSections("<section path=\"Orvane/SETTINGS\">" + values + "</section>");
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
