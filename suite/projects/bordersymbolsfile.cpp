#include "suite/bordersymbolsfile.h"

#include "suite/files/numberedlist.h"
#include "suite/projects/mergedfile.h"

#include <array>
#include <string_view>
#include <utility>

namespace NProjectTools {

namespace {

constexpr std::string_view kTable = "Borders";
constexpr std::string_view kProperties = "Properties";
constexpr std::string_view kAvailable = "AvailableProperties";
constexpr std::array kSections{kTable, kProperties, kAvailable};
constexpr std::string_view kAvailableList = "Name";

using suite::Entry;

std::vector<Entry> entriesOf(const Orv::IBorderSymbols::Table& table) {
    return {table.begin(), table.end()};
}

} // namespace

struct CBorderSymbolsFile::Impl {
    suite::MergedFile file;
    Table table;
    std::vector<Property> properties;
    std::vector<std::string> names;
    std::vector<Entry> storedTable; ///< these two as the file has them
    std::vector<Entry> storedProperties;
    std::string saveError;

    platform::Result<> store(platform::ProfileDocument& content, bool isOrigin) const {
        const std::vector<Entry> none;
        if (auto held = suite::storeEntries(content, kTable, isOrigin ? storedTable : none, entriesOf(table));
            !held)
            return held;
        if (!isOrigin || properties != storedProperties) {
            if (auto held =
                    suite::storeEntries(content, kProperties, isOrigin ? storedProperties : none, properties);
                !held)
                return held;
            suite::orderEntries(content, kProperties, properties);
        }
        return isOrigin ? platform::Result() : suite::storeList(content, kAvailable, kAvailableList, names);
    }
};

CBorderSymbolsFile::CBorderSymbolsFile() : impl_(std::make_unique<Impl>()) {
}

CBorderSymbolsFile::~CBorderSymbolsFile() = default;

void CBorderSymbolsFile::Reload(const std::string& path) {
    const auto content = impl_->file.reload(path);
    if (!content)
        return;
    impl_->storedTable = suite::readEntries(*content, kTable);
    impl_->table = Table(impl_->storedTable.begin(), impl_->storedTable.end());
    impl_->storedProperties = suite::readEntries(*content, kProperties);
    impl_->properties = impl_->storedProperties;
    impl_->names = suite::readList(*content, kAvailable, kAvailableList);
}

void CBorderSymbolsFile::Save(const std::string& path) {
    const std::vector<Entry> table =
        suite::withoutFormerSpellings(entriesOf(impl_->table), impl_->storedTable);
    impl_->table = Table(table.begin(), table.end());
    impl_->properties = suite::withoutFormerSpellings(std::move(impl_->properties), impl_->storedProperties);
    const auto store = [this](platform::ProfileDocument& content, bool isOrigin) {
        return impl_->store(content, isOrigin);
    };
    impl_->saveError = impl_->file.save(path, kSections, store).errorText();
    if (impl_->saveError.empty()) {
        impl_->storedTable = entriesOf(impl_->table);
        impl_->storedProperties = impl_->properties;
    }
}

CBorderSymbolsFile::Table& CBorderSymbolsFile::GetTable() {
    return impl_->table;
}

std::vector<CBorderSymbolsFile::Property>& CBorderSymbolsFile::GetProperties() {
    return impl_->properties;
}

std::vector<std::string> CBorderSymbolsFile::GetPropertyNames() {
    return impl_->names;
}

std::string CBorderSymbolsFile::GetSaveError() {
    return impl_->saveError;
}

} // namespace NProjectTools
