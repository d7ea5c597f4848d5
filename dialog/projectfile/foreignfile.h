#pragma once

#include <set>
#include <string>

class QWidget;

namespace Orv {
struct CProjectConfiguration;
}

namespace ovsettings {

/// Takes note that the user himself has named this file as one of the project's: he is not asked about it.
/// @param path full path, links and all.
void noteNamedByUser(const Orv::CProjectConfiguration& project, const std::string& path);

/// Has the user decide whether a page writes to a file that the project names in a place that is not its own.
/// He is asked once: a Yes holds for the project and the place as long as the process lives, a No as long as
/// the page. By then it is another place if a link leads elsewhere.
class ForeignFile {
public:
    /// Whether it needs nobody's leave to write there: the place is the project's own, the user has allowed
    /// it, or nothing can be written there, which the save then tells.
    static bool isAllowed(const Orv::CProjectConfiguration& project, const std::string& path);

    /// Asks where that is needed. After a No, tells in later calls why nothing is written.
    bool mayWrite(QWidget& page, const Orv::CProjectConfiguration& project, const std::string& path);

private:
    std::set<std::string> declined_; ///< places
};

} // namespace ovsettings
