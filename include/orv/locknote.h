#pragma once

#include <string>

namespace Orv {

/// Why a setting is locked and whom to ask, in the administrator's words, UTF-8. Either may be empty.
struct LockNote {
    std::string reason;
    std::string contact; ///< a name, an address, a number: whatever reaches somebody

    bool isEmpty() const { return reason.empty() && contact.empty(); }
    bool operator==(const LockNote&) const = default;
};

} // namespace Orv
