// The reader of configuration files: what is read survives writing, and an edit changes nothing else.

#include "fuzz/support.h"
#include "platform/xmldocument.h"
#include "suite/configurations/document.h"
#include "suite/configurations/xmlprinter.h"

#include <algorithm>

using fuzz::require;
using suite::ConfigurationDocument;
using suite::Problem;

namespace {

constexpr const char* kPaths[] = {"Orvane/SETTINGS", "Orvane/LAYERS", "a"};
constexpr const char* kTypes[] = {"layer", "object", "t"};
constexpr const char* kEdited = "DB_AUTO_BACKUP";
constexpr std::size_t kLongestEdit = 40;

/// What a document says, as far as these paths go.
struct Answer {
    std::string place;
    ConfigurationDocument::Values values;
    ConfigurationDocument::Attributes attributes;
    std::vector<std::uint8_t> locks;
    std::map<std::string, int> attributeLocks;
    bool locked = false;

    bool operator==(const Answer&) const = default;
};

std::vector<Answer> answers(const ConfigurationDocument& document) {
    std::vector<Answer> all;
    for (const std::string path : kPaths) {
        for (const std::string& key : document.keys(path)) {
            Answer& a = all.emplace_back(Answer{path + '#' + key, {}, {}, {}, {}, false});
            require(document.hasKey(path, key) && document.readKey(path, key, a.values, a.locks));
            require(a.values.size() == a.locks.size());
            a.locked = document.isKeyLocked(path, key);
            require(!a.locked || std::ranges::count(a.locks, 0) == 0);
        }
        for (const char* type : kTypes) {
            for (const std::string& key : document.groups(path, type)) {
                Answer& a = all.emplace_back(Answer{path + '#' + type + '#' + key, {}, {}, {}, {}, false});
                require(document.hasGroup(path, type, key));
                require(document.readGroup(path, type, key, a.attributes, a.attributeLocks, a.locked));
            }
        }
    }
    return all;
}

/// The library's own printer, which ours takes the place of.
std::string dumped(xmlDoc& tree) {
    xmlChar* bytes = nullptr;
    int size = 0;
    xmlDocDumpMemory(&tree, &bytes, &size);
    const std::string text(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size));
    xmlFree(bytes);
    return text;
}

/// With the encoding that is written where a file names none.
void requireSamePrint(std::string_view text) {
    const platform::XmlDocument tree = platform::parseXml(text);
    if (!tree)
        return;
    if (!tree->encoding)
        tree->encoding = xmlStrdup(BAD_CAST "UTF-8");
    require(suite::xml::print(*tree) == dumped(*tree));
}

ConfigurationDocument reparsed(const ConfigurationDocument& document) {
    const std::string text = document.serialise();
    Problem problem;
    auto again = ConfigurationDocument::parse(text, problem);
    require(again.has_value());
    requireSamePrint(text);
    return std::move(*again);
}

void requireOthersUnchanged(std::vector<Answer> before, std::vector<Answer> after, const std::string& place) {
    const auto isEdited = [&](const Answer& answer) {
        return answer.place == place;
    };
    std::erase_if(before, isEdited);
    std::erase_if(after, isEdited);
    require(before == after);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::textOf(data, size);
    Problem problem;
    auto document = ConfigurationDocument::parse(text, problem);
    require(document.has_value() == problem.text.empty());
    if (!document) {
        require(problem.line >= 0 && problem.line <= std::ranges::count(text, '\n') + 1);
        return 0;
    }
    requireSamePrint(text);
    bool isTold = false;
    document->setReporter([&isTold](const Problem& told) { isTold = told.line > 0 && !told.text.empty(); });
    const std::vector<Answer> before = answers(*document);
    require(isTold == document->isFlawed());
    require(answers(reparsed(*document)) == before);

    const std::string path = kPaths[0];
    const std::string value(text.substr(size - std::min(size, kLongestEdit)));
    document->writeValue(path, kEdited, value);
    ConfigurationDocument::Values values;
    std::vector<std::uint8_t> locks;
    const ConfigurationDocument edited = reparsed(*document);
    require(edited.readKey(path, kEdited, values, locks) && values == ConfigurationDocument::Values{value});
    requireOthersUnchanged(before, answers(edited), path + '#' + kEdited);

    document->removeKey(path, kEdited);
    require(!document->hasKey(path, kEdited));
    requireOthersUnchanged(before, answers(*document), path + '#' + kEdited);
    return 0;
}
