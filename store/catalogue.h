#pragma once

#include "orv/appconfiguration.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace Orv {

/// One property as the product ships it.
struct CatalogueRow {
    std::string_view key;
    iAppConfiguration::Kind kind;
    std::string_view defaultText; ///< the fields, joined by ", "; see cutFields
};

/// Every property there is, in the order in which the store registers them.
std::span<const CatalogueRow> catalogue() noexcept;

/// The row of a key, at the cost of hashing three words of it. Allocates nothing.
std::optional<std::size_t> findRow(std::string_view key) noexcept;

} // namespace Orv
