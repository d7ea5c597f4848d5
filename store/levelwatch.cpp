#include "orv/levelwatch.h"

#include "platform/pathwatch.h"
#include "suite/configuration.h"

namespace Orv {

namespace {

std::vector<std::string> filesOf(const std::vector<std::string>& directories) {
    std::vector<std::string> files;
    files.reserve(directories.size());
    for (const auto& directory : directories)
        files.push_back(IOvConfigurationManager::Instance().FileOf(directory));
    return files;
}

} // namespace

struct LevelWatch::Impl {
    explicit Impl(std::vector<std::string> files) : watch(std::move(files)) {}

    platform::PathWatch watch;
};

LevelWatch::LevelWatch(const std::vector<std::string>& directories)
    : impl_(std::make_unique<Impl>(filesOf(directories))) {
}

LevelWatch::~LevelWatch() = default;

int LevelWatch::descriptor() const {
    return impl_->watch.descriptor();
}

bool LevelWatch::takeChanges() {
    return impl_->watch.takeChanges();
}

} // namespace Orv
