#pragma once

#include <orv/declaration.h>

#include <nlohmann/json_fwd.hpp>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace app {

/// What the program calls a unit; empty for none.
std::string_view unitName(Orv::SettingUnit unit);

/// Whether the fields of a setting have names; else there is one field, that of a list for all its entries.
bool hasNamedFields(const Orv::SettingDeclaration& setting);

/// The pages of the dialog that show a setting, by the names that hosts know them by.
std::vector<std::string_view> pagesOf(std::string_view key);

/// The limits or the choices of a field in words, as a message tells them; empty if it has neither.
std::string allowedInWords(const Orv::FieldDeclaration& field, Orv::Metrics::Unit unit);

/// Unit, limits and choices of a field as JSON, null and an empty array where it has none.
nlohmann::json unitJson(const Orv::FieldDeclaration& field);
nlohmann::json limitsJson(const Orv::FieldDeclaration& field, Orv::Metrics::Unit unit);
nlohmann::json choicesJson(const Orv::FieldDeclaration& field);

/// Why the dialog would not take a text for a field of a setting, or nothing if it would.
/// @param field index from 0; of a list any.
std::optional<std::string> objectionOfDialog(const Orv::SettingDeclaration& setting, std::size_t field,
                                             std::string_view text, Orv::Metrics::Unit unit);

} // namespace app
