#pragma once

#include "orv/updater.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#define RECORDING_API __attribute__((visibility("default")))

/// What the add-in's pages were asked, in order, and what they are to answer.
struct RECORDING_API Recorder {
    std::vector<std::string> calls;                    ///< "A.onOk"
    std::map<std::string, bool> answers;               ///< by call; true where there is none
    std::map<std::string, std::function<void()>> acts; ///< run inside a call
    Orv::IUpdater* updater = nullptr;                  ///< what the factory gives
};

/// The recorder of the process.
RECORDING_API Recorder& recorder();
