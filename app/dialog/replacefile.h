#pragma once

#include <QtCore/QByteArray>

#include <filesystem>

namespace app {

/// Makes a file of these bytes. What has the name already is replaced as a whole and never written through: a
/// link there may lead anywhere.
/// @return false, with what was there, if the file cannot be written.
bool replaceFile(const std::filesystem::path& path, const QByteArray& bytes);

} // namespace app
