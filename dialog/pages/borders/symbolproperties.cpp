#include "dialog/pages/borders/symbolproperties.h"

#include "orv/symbolreader.h"

namespace ovsettings {

namespace {

/// A value that begins with it is filled in by the editor.
constexpr char kFilledIn = '@';

} // namespace

void SymbolProperties::read(const std::string& symbol) {
    const auto separator = symbol.find(Orv::kSymbolSeparator);
    const bool hasLibrary = separator != std::string::npos;
    const std::string library = hasLibrary ? symbol.substr(0, separator) : std::string();
    const std::string symbolName = hasLibrary ? symbol.substr(separator + 1) : symbol;
    for (const Attribute& property : reader_.GetProperties(library, symbolName)) {
        const auto& [name, value] = property;
        if ((filter_ && !filter_->Counts(name)) || value.starts_with(kFilledIn))
            continue;
        std::vector<std::string>& values = known_[name];
        // The user can choose an empty value for every property anyway.
        if (!value.empty() && found_.insert(property).second)
            values.push_back(value);
    }
}

} // namespace ovsettings
