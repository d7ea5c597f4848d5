#include "tests/editor/editorfixture.h"

namespace {

struct KeyRecorder : Orv::iAppConfiguration::iEventSink {
    void propertyChanged(const std::string& key, float) override { keys.push_back(key); }
    std::vector<std::string> keys;
};

} // namespace

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

std::vector<std::string> EditorPages::keysWrittenBy(ovsettings::CPropDialogTemplate& page) {
    KeyRecorder recorder;
    appConfig_.addSink(&recorder);
    EXPECT_TRUE(page.onApply());
    appConfig_.removeSink(&recorder);
    return recorder.keys;
}
