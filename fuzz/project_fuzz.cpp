// The reader of project files, and the edits of its lists.

#include "fuzz/support.h"
#include "suite/files/numberedlist.h"
#include "suite/projectfile.h"
#include "suite/projects/librarysection.h"

#include <algorithm>

using fuzz::require;
using NProjectTools::CProjectFile;
using platform::ProfileDocument;

namespace {

using Strings = std::vector<std::string>;

bool isText(std::string_view text) {
    return text.find('\0') == std::string_view::npos && !text.starts_with("\xFF\xFE") &&
           !text.starts_with("\xFE\xFF");
}

/// A carriage return within a value is read, but not written to another place: other programs end a line
/// there.
bool isStorable(std::string_view value) {
    return value.find('\r') == std::string_view::npos;
}

void checkDesign(CProjectFile& project, const ProfileDocument& document, const std::string& design) {
    const std::string section = "Design " + design;
    require(project.GetTopBlock(design) == document.value(section, "TopBlock").value_or(""));
    require(project.GetSymbolPartitions(design) == suite::readList(document, section, "SymbolPartition"));
    const std::string flag = document.value(section, "BackAnnotationBlocked").value_or("");
    require(!project.GetBackAnnotationBlocked(design) || flag.size() == 1 || flag.size() == 3 ||
            flag.size() == 4);
}

/// Both readers of lists agree, and a list that is written is read.
void checkLists(std::string_view text, ProfileDocument& document) {
    const Strings functions = suite::readList(document, "FixedFunctions", "Function");
    require(functions == suite::readList(platform::ProfileView(text), "FixedFunctions", "Function"));
    Strings longer(functions.rbegin(), functions.rend());
    longer.emplace_back("NEW");
    const Strings others = document.keys("DesignInfo");
    if (!std::ranges::all_of(functions, isStorable))
        return;
    for (const Strings& list : {longer, functions}) {
        require(suite::writeList(document, "FixedFunctions", "Function", list));
        require(suite::readList(document, "FixedFunctions", "Function") == list);
    }
    require(document.keys("DesignInfo") == others);
}

void checkLibraries(std::string_view text, ProfileDocument& document) {
    std::vector<suite::LibraryEntry> libraries = suite::readLibraries(platform::ProfileView(text));
    std::ranges::reverse(libraries);
    if (!std::ranges::all_of(libraries, isStorable, &suite::LibraryEntry::location) ||
        !std::ranges::all_of(libraries, isStorable, &suite::LibraryEntry::alias))
        return;
    require(suite::writeLibraries(document, libraries));
    const std::string written = document.text();
    const auto again = suite::readLibraries(platform::ProfileView(written));
    require(std::ranges::equal(again, libraries, [](const auto& one, const auto& other) {
        return one.alias == other.alias && one.location == other.location && one.type == other.type;
    }));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::File file("fuzzed.prj");
    const std::string_view text = fuzz::textOf(data, size);
    file.write(text);
    CProjectFile project;
    const bool isOpen = project.openProjectFile(file.path());
    require(isOpen == isText(text) && isOpen == project.lastError().empty());
    if (!isOpen)
        return 0;
    ProfileDocument document(text);
    require(project.GetServerName() == document.value("DesignInfo", "ServerName").value_or(""));
    Strings designs;
    project.GetDesignNames(designs);
    require(designs == suite::readList(document, "Designs", "Design"));
    if (!designs.empty())
        checkDesign(project, document, designs.front());
    if (size % 2 == 0)
        checkLists(text, document);
    else
        checkLibraries(text, document);
    return 0;
}
