#pragma once

namespace Orv {
struct CProjectConfiguration;
}

namespace ovsettings {

class CFactoryEx;

/// Enters the page classes of this library under their keys; those of a project only while one is open.
/// Defined beside the pages, the one place that joins a key and a class.
void registerInternalPages(CFactoryEx& factory, const Orv::CProjectConfiguration* projectConfig);

} // namespace ovsettings
