#pragma once

#include "orv/centrallibrarystate.h"

namespace Orv {
class IProjectFileData;
}

namespace suite {

/// The central library of a project, as it is at the moment of the question.
class ProjectLibraryState final : public Orv::ICentralLibraryState {
public:
    /// @param project must outlive this object.
    explicit ProjectLibraryState(Orv::IProjectFileData& project) : project_(project) {}

    bool IsAttached() override;

private:
    Orv::IProjectFileData& project_;
};

} // namespace suite
