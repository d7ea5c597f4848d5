#pragma once

#include "orv/appconfiguration.h"

#include <string>
#include <string_view>
#include <vector>

namespace Orv {

/// How a property stands in a configuration.
enum class Storage { value, list, group };

/// Which typed cache shadows a property's text.
enum class Cache { none, number, graphics };

/// What follows from a property's kind.
struct KindTraits {
    Storage storage;
    Cache cache;
    std::string path;                    ///< as the configuration is asked for it, see pathOf
    std::string typeWord;                ///< of a group; empty for values and lists
    std::vector<std::string> fieldNames; ///< of a group; empty for values and lists
};

/// @param kind 1 to 9.
const KindTraits& kindTraits(int kind);

/// The path of a property. Some lists have a place of their own.
const std::string& pathOf(int kind, const std::string& name);

/// Cuts text at every comma with a blank behind it, and at no other comma. Empty text has no pieces.
std::vector<std::string> cutFields(std::string_view joined);
/// The same, into memory that is there.
void cutFields(std::string_view joined, std::vector<std::string>& fields);
void cutFields(std::string_view joined, std::vector<std::string_view>& fields);

} // namespace Orv
