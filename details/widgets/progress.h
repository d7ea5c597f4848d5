#pragma once

#include <QtCore/QString>

#include <cstddef>
#include <functional>

class QWidget;

namespace ovsettings {

/// Does work that may take long, step by step, in front of a box that shows how far it has come and lets the
/// user stop it. Work of less than a second shows no box.
/// @param step called with 0 to count - 1.
/// @return false if the user has stopped the work; the steps that were left are not made.
bool withProgress(QWidget& parent, const QString& text, std::size_t count,
                  const std::function<void(std::size_t)>& step);

} // namespace ovsettings
