#include "suite/projectfile.h"

#include "platform/asciicase.h"
#include "platform/paths.h"
#include "platform/trim.h"
#include "suite/files/errorlog.h"
#include "suite/files/numberedlist.h"
#include "suite/projects/projectfiletext.h"
#include "suite/projects/projectsections.h"
#include "suite/projects/softnames.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace NProjectTools {

namespace {

using suite::kDesignInfo;
using suite::kDesigns;
using suite::kFixedFunctions;

constexpr std::string_view kDesignPrefix = "Design ";
constexpr std::string_view kTrue = "1";
constexpr std::string_view kFalse = "0";

std::string sectionOf(const std::string& block) {
    return std::string(kDesignPrefix) + block;
}

bool isTrue(const std::string& text) {
    constexpr std::array words{"1", "true", "yes"};
    for (const char* word : words) {
        if (platform::equalsWithoutCase(word, text))
            return true;
    }
    return false;
}

std::string textOf(const platform::ProfileDocument& content, std::string_view section, std::string_view key) {
    return content.value(section, key).value_or("");
}

void append(std::vector<std::string>& list, std::vector<std::string> more) {
    list.insert(list.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

} // namespace

struct CProjectFile::Impl {
    suite::ProjectFileText document;
    std::string lastError;

    std::string text(std::string_view section, std::string_view key) {
        return textOf(document.content(), section, key);
    }

    std::string info(std::string_view key) { return text(kDesignInfo, key); }

    std::string path(std::string_view key, int full) {
        std::string stored = info(key);
        if (!full || stored.empty())
            return stored;
        const auto map = suite::SoftNames::ofProject(document.path());
        std::string found = map.fullPath(stored);
        const auto trimmed = platform::trim(stored, " \t");
        if (trimmed.size() == stored.size() || platform::resolveExisting(found))
            return found;
        // The pages test a path without the blanks that may have been typed around it.
        const std::string other = map.fullPath(trimmed);
        return platform::resolveExisting(other) ? other : found;
    }

    void setText(std::string_view section, std::string_view key, std::string_view value) {
        document.change([&](platform::ProfileDocument& content) {
            // An unset key reads as an empty text, and needs no line that says so.
            if (value.empty() && !content.value(section, key))
                return true;
            return content.set(section, key, value);
        });
    }

    void setInfo(std::string_view key, std::string_view value) { setText(kDesignInfo, key, value); }

    bool flag(const std::string& block, std::string_view key) { return isTrue(text(sectionOf(block), key)); }

    void setFlag(const std::string& block, std::string_view key, bool value) {
        document.change([&](platform::ProfileDocument& content) {
            const std::string section = sectionOf(block);
            return isTrue(textOf(content, section, key)) == value ||
                   content.set(section, key, value ? kTrue : kFalse);
        });
    }

    std::vector<std::string> list(std::string_view section, std::string_view name) {
        return suite::readList(document.content(), section, name);
    }

    void setList(std::string_view section, std::string_view name, const std::vector<std::string>& texts) {
        document.change([&](platform::ProfileDocument& content) {
            return suite::writeList(content, section, name, texts);
        });
    }
};

CProjectFile::CProjectFile() : impl_(std::make_unique<Impl>()) {
}

CProjectFile::~CProjectFile() = default;

bool CProjectFile::openProjectFile(const std::string& path) {
    impl_->lastError = impl_->document.open(path).errorText();
    return impl_->lastError.empty();
}

void CProjectFile::closeProjectFile() {
    impl_->document.close();
}

const std::string& CProjectFile::lastError() const {
    return impl_->lastError;
}

void CProjectFile::SetErrorHandler(ErrorHandler handler) {
    suite::errorLog().setHandler(std::move(handler));
}

std::string CProjectFile::GetFilePath() {
    return impl_->document.path();
}

void CProjectFile::GetDesignNames(std::vector<std::string>& names) {
    append(names, impl_->list(kDesigns, "Design"));
}

std::string CProjectFile::GetDatabasePath(int full) {
    return impl_->path("Database", full);
}

std::string CProjectFile::GetServerName() {
    return impl_->info("ServerName");
}

void CProjectFile::SetServerName(const std::string& name) {
    impl_->setInfo("ServerName", name);
}

std::string CProjectFile::GetCentralLibraryPath(int full) {
    return impl_->path("CentralLibrary", full);
}

void CProjectFile::SetCentralLibraryPath(const std::string& path) {
    impl_->setInfo("CentralLibrary", path);
}

std::string CProjectFile::GetBorderSymbolsPath(int full) {
    return impl_->path("BorderSymbols", full);
}

std::string CProjectFile::GetPinComponentsPath(int full) {
    return impl_->path("PinComponents", full);
}

std::string CProjectFile::GetBusContentsPath(int full) {
    return impl_->path("Bus_Contents", full);
}

std::string CProjectFile::GetNetNameDelimiter() {
    return impl_->info("NetNameDelimiter");
}

void CProjectFile::SetNetNameDelimiter(const std::string& delimiter) {
    impl_->setInfo("NetNameDelimiter", delimiter);
}

std::string CProjectFile::GetTopBlock(const std::string& block) {
    return impl_->text(sectionOf(block), "TopBlock");
}

void CProjectFile::SetTopBlock(const std::string& text, const std::string& block) {
    impl_->setText(sectionOf(block), "TopBlock", text);
}

std::string CProjectFile::GetSearchScheme(const std::string& block) {
    return impl_->text(sectionOf(block), "SearchScheme");
}

void CProjectFile::SetSearchScheme(const std::string& scheme, const std::string& block) {
    impl_->setText(sectionOf(block), "SearchScheme", scheme);
}

std::vector<std::string> CProjectFile::GetSymbolPartitions(const std::string& block) {
    return impl_->list(sectionOf(block), "SymbolPartition");
}

void CProjectFile::SetSymbolPartitions(const std::vector<std::string>& list, const std::string& block) {
    impl_->setList(sectionOf(block), "SymbolPartition", list);
}

std::vector<std::string> CProjectFile::GetPdbSearchPath(const std::string& block) {
    return impl_->list(sectionOf(block), "PdbSearchPath");
}

void CProjectFile::SetPdbSearchPath(const std::vector<std::string>& list, const std::string& block) {
    impl_->setList(sectionOf(block), "PdbSearchPath", list);
}

std::string CProjectFile::GetLayoutTool() {
    return impl_->info("LayoutTool");
}

void CProjectFile::SetLayoutTool(const std::string& name) {
    impl_->setInfo("LayoutTool", name);
}

std::string CProjectFile::GetPcbConfigFile() {
    return impl_->info("PcbCfgFileName");
}

void CProjectFile::SetPcbConfigFile(const std::string& name) {
    impl_->setInfo("PcbCfgFileName", name);
}

std::string CProjectFile::GetConstraintsFile() {
    return impl_->info("CnsFileName");
}

void CProjectFile::SetConstraintsFile(const std::string& name) {
    impl_->setInfo("CnsFileName", name);
}

bool CProjectFile::GetBackAnnotationBlocked(const std::string& block) {
    return impl_->flag(block, "BackAnnotationBlocked");
}

void CProjectFile::SetBackAnnotationBlocked(bool blocked, const std::string& block) {
    impl_->setFlag(block, "BackAnnotationBlocked", blocked);
}

bool CProjectFile::GetForwardAnnotationBlocked(const std::string& block) {
    return impl_->flag(block, "ForwardAnnotationBlocked");
}

void CProjectFile::SetForwardAnnotationBlocked(bool blocked, const std::string& block) {
    impl_->setFlag(block, "ForwardAnnotationBlocked", blocked);
}

std::string CProjectFile::GetConflictWinner(const std::string& block) {
    return impl_->text(sectionOf(block), "ConflictWinner");
}

void CProjectFile::SetConflictWinner(const std::string& winner, const std::string& block) {
    impl_->setText(sectionOf(block), "ConflictWinner", winner);
}

std::vector<std::string> CProjectFile::GetThirdPartitions(const std::string& block) {
    return impl_->list(sectionOf(block), "ThirdPartition");
}

void CProjectFile::SetThirdPartitions(const std::vector<std::string>& list, const std::string& block) {
    impl_->setList(sectionOf(block), "ThirdPartition", list);
}

void CProjectFile::GetFixedFunctions(std::vector<std::string>& functions) {
    append(functions, impl_->list(kFixedFunctions, "Function"));
}

void CProjectFile::SetFixedFunctions(const std::vector<std::string>& functions) {
    impl_->setList(kFixedFunctions, "Function", functions);
}

std::string CProjectFile::GetValue(const std::string& section, const std::string& key) {
    return impl_->text(section, key);
}

void CProjectFile::SetValue(const std::string& section, const std::string& key, const std::string& value) {
    impl_->setText(section, key, value);
}

} // namespace NProjectTools
