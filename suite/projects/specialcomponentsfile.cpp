#include "suite/specialcomponentsfile.h"

#include "suite/files/numberedlist.h"
#include "suite/projects/mergedfile.h"

#include <array>
#include <string_view>

namespace NProjectTools {

namespace {

/// The sections, by the number of their category.
constexpr std::array<std::string_view, Orv::ISpecialComponents::kCategories> kSections{
    "PortIn",  "PortOut",  "PortBi", "PortTri", "PortAnalog",   "PortOcl",      "PortOem",
    "OnSheet", "OffSheet", "Power",  "Ground",  "RipperBusNet", "RipperBusBus",
};
constexpr std::string_view kList = "Symbol";

using Categories = std::array<std::vector<std::string>, kSections.size()>;

Categories readCategories(const platform::ProfileDocument& content) {
    Categories categories;
    for (std::size_t i = 0; i < kSections.size(); ++i)
        categories[i] = suite::readList(content, kSections[i], kList);
    return categories;
}

} // namespace

struct CSpecialComponentsFile::Impl {
    suite::MergedFile file;
    Categories categories;
    Categories stored; ///< as the file has them
    std::vector<std::string> nobodys;
    std::string saveError;

    platform::Result<> store(platform::ProfileDocument& content, bool isOrigin) const {
        const Categories former = isOrigin ? stored : Categories();
        for (std::size_t i = 0; i < kSections.size(); ++i) {
            if (categories[i] == former[i])
                continue;
            if (auto held = suite::storeList(content, kSections[i], kList, categories[i]); !held)
                return held;
        }
        return {};
    }
};

CSpecialComponentsFile::CSpecialComponentsFile() : impl_(std::make_unique<Impl>()) {
}

CSpecialComponentsFile::~CSpecialComponentsFile() = default;

void CSpecialComponentsFile::Reload(const std::string& path) {
    if (const auto content = impl_->file.reload(path)) {
        impl_->stored = readCategories(*content);
        impl_->categories = impl_->stored;
    }
}

void CSpecialComponentsFile::Save(const std::string& path) {
    const auto store = [this](platform::ProfileDocument& content, bool isOrigin) {
        return impl_->store(content, isOrigin);
    };
    impl_->saveError = impl_->file.save(path, kSections, store).errorText();
    if (impl_->saveError.empty())
        impl_->stored = impl_->categories;
}

std::vector<std::string>& CSpecialComponentsFile::GetCategory(int index) {
    if (index >= 0 && index < kCategories)
        return impl_->categories[static_cast<std::size_t>(index)];
    impl_->nobodys.clear();
    return impl_->nobodys;
}

std::string CSpecialComponentsFile::GetSaveError() {
    return impl_->saveError;
}

} // namespace NProjectTools
