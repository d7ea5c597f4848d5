#pragma once

#include <array>
#include <string_view>

namespace suite {

// The sections of a project file; each design has one of its own besides.
inline constexpr std::string_view kDesignInfo = "DesignInfo";
inline constexpr std::string_view kDesigns = "Designs";
inline constexpr std::string_view kFixedFunctions = "FixedFunctions";
inline constexpr std::string_view kSymbolLibraries = "SymbolLibraries";
inline constexpr std::array kProjectSections{kDesignInfo, kDesigns, kFixedFunctions, kSymbolLibraries};

} // namespace suite
