#include "suite/projectdatafile.h"

#include "details/platform/paths.h"
#include "details/platform/profiledocument.h"
#include "suite/project/projectlog.h"
#include "suite/project/textfile.h"

namespace NProjectTools {

struct CProjectDataFile::Impl {
    std::string path;
    platform::ProfileDocument content;
};

CProjectDataFile::CProjectDataFile() : impl_(std::make_unique<Impl>()) {
}

CProjectDataFile::~CProjectDataFile() = default;

void CProjectDataFile::Reload(const std::string& path) {
    impl_->path = path;
    if (path.empty()) {
        impl_->content = platform::ProfileDocument();
        return;
    }
    std::string bytes;
    const auto error = suite::readTextFile(platform::fullPath(path), bytes);
    if (!error)
        impl_->content = platform::ProfileDocument(bytes);
    else if (!error->missing)
        suite::projectLog().report(error->text);
}

const std::string& CProjectDataFile::path() const {
    return impl_->path;
}

std::vector<std::string> CProjectDataFile::sectionNames() const {
    return impl_->content.sectionNames();
}

std::vector<std::string> CProjectDataFile::keys(const std::string& section) const {
    return impl_->content.keys(section);
}

std::string CProjectDataFile::value(const std::string& section, const std::string& key) const {
    return impl_->content.value(section, key).value_or("");
}

} // namespace NProjectTools
