#include "ovsettings/configurationwatcher.h"

#include "orv/levelwatch.h"

#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>

#include <chrono>

namespace ovsettings {

namespace {

constexpr std::chrono::milliseconds kCalm{200};

} // namespace

CConfigurationWatcher::CConfigurationWatcher(const std::vector<std::string>& directories, QObject* parent)
    : QObject(parent), watch_(std::make_unique<Orv::LevelWatch>(directories)), calm_(new QTimer(this)) {
    calm_->setSingleShot(true);
    calm_->setInterval(kCalm);
    connect(calm_, &QTimer::timeout, this, &CConfigurationWatcher::changed);
    if (watch_->descriptor() < 0)
        return;
    notifier_ = std::make_unique<QSocketNotifier>(watch_->descriptor(), QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, [this] {
        // The time counts from the first change and not from the last one, so that a file that is written all
        // the time is told of, too.
        if (watch_->takeChanges() && !calm_->isActive())
            calm_->start();
    });
}

CConfigurationWatcher::~CConfigurationWatcher() = default;

} // namespace ovsettings
