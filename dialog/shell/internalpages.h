#pragma once

#include "dialog/shell/pagerow.h"

#include <string_view>

namespace Orv {
struct CProjectConfiguration;
}

namespace ovsettings {

/// The pages of this library, but for those of designs. Defined beside the pages, the one place that joins a
/// key and a class.
std::span<const PageRow> internalPages();
/// The row of a key, which must be there.
const PageRow& internalPage(std::string_view key);

/// Enters the page classes of this library under their keys; those of a project only while one is open.
void registerInternalPages(CFactoryEx& factory, const Orv::CProjectConfiguration* projectConfig);

} // namespace ovsettings
