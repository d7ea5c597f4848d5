#pragma once

#include "ovsettings/export.h"

#include <memory>
#include <string>
#include <vector>

namespace Orv {

/// Tells that a configuration of some working directories may have changed: it was written, appeared,
/// vanished, was replaced, or is reached through another link. What it says now is
/// iAppConfiguration::refresh's to find out; the saves of this program are told of, too. Without a thread and
/// without an event loop of its own; for one of Qt see `ovsettings/configurationwatcher.h`.
class OVSETTINGS_API LevelWatch {
public:
    /// @param directories as iAppConfiguration::workingDirectories gives them; a missing one is waited for.
    explicit LevelWatch(const std::vector<std::string>& directories);
    ~LevelWatch();
    LevelWatch(const LevelWatch&) = delete;
    LevelWatch& operator=(const LevelWatch&) = delete;

    /// A file descriptor, owned by this object, that poll and the like find readable when something came; -1
    /// where the system has no watch to give, and then nothing is ever told.
    int descriptor() const;

    /// Takes what came since the last call, without waiting. @return whether it concerns a configuration.
    bool takeChanges();

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace Orv
