#pragma once

#include "ovsettings/export.h"

namespace Orv {

/// Says whether the open project has a central library. The order of the operations is part of the binary
/// contract.
class OVSETTINGS_API ICentralLibraryState {
public:
    /// Whether a central library is attached, that is, its index exists.
    virtual bool IsAttached() = 0;

protected:
    ~ICentralLibraryState() = default;
};

} // namespace Orv
