#pragma once

#include "ovsettings/export.h"

#include <QtCore/QObject>

#include <memory>
#include <string>
#include <vector>

class QSocketNotifier;
class QTimer;

namespace Orv {
class LevelWatch;
}

namespace ovsettings {

/// Emits a signal when a configuration of some working directories may have changed. It changes no store: a
/// host that wants its running program to follow calls iAppConfiguration::refresh, at a moment that suits it.
///
///     ovsettings::CConfigurationWatcher watcher(configuration.workingDirectories());
///     QObject::connect(&watcher, &ovsettings::CConfigurationWatcher::changed, [&] { configuration.refresh();
///     });
class OVSETTINGS_API CConfigurationWatcher : public QObject {
    Q_OBJECT

public:
    /// @param directories as iAppConfiguration::workingDirectories gives them.
    explicit CConfigurationWatcher(const std::vector<std::string>& directories, QObject* parent = nullptr);
    ~CConfigurationWatcher() override;

Q_SIGNALS:
    /// Once for all that came within a fifth of a second: a write is a series of steps.
    void changed();

private:
    std::unique_ptr<Orv::LevelWatch> watch_;
    std::unique_ptr<QSocketNotifier> notifier_; ///< goes before the descriptor that it looks at
    QTimer* calm_;
};

} // namespace ovsettings
