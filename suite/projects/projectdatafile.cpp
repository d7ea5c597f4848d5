#include "suite/projectdatafile.h"

#include "suite/projects/mergedfile.h"

#include <utility>

namespace NProjectTools {

struct CProjectDataFile::Impl {
    suite::MergedFile file;
    platform::ProfileDocument content;
};

CProjectDataFile::CProjectDataFile() : impl_(std::make_unique<Impl>()) {
}

CProjectDataFile::~CProjectDataFile() = default;

void CProjectDataFile::Reload(const std::string& path) {
    if (auto content = impl_->file.reload(path))
        impl_->content = std::move(*content);
}

std::vector<std::string> CProjectDataFile::keys(const std::string& section) const {
    return impl_->content.keys(section);
}

std::string CProjectDataFile::value(const std::string& section, const std::string& key) const {
    return impl_->content.value(section, key).value_or("");
}

} // namespace NProjectTools
