#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace ovsettings {

/// A property's name and value, UTF-8.
using Attribute = std::pair<std::string, std::string>;
using Attributes = std::vector<Attribute>;
/// From a property's name to the values that it is known to have, in order.
using KnownValues = std::map<std::string, std::vector<std::string>>;

} // namespace ovsettings
