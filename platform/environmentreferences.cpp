#include "platform/environmentreferences.h"

#include "platform/environment.h"
#include "platform/remotefile.h"

#include <utility>

namespace platform {

std::optional<std::string> tryExpandEnvironmentReferences(std::string_view text) {
    std::string expanded;
    while (expanded.size() <= kLongestExpansion) {
        const auto open = text.find('%');
        const auto close = open == std::string_view::npos ? open : text.find('%', open + 1);
        if (close == std::string_view::npos) {
            const bool fits = expanded.empty() || expanded.size() + text.size() <= kLongestExpansion;
            return fits ? std::optional(expanded.append(text)) : std::nullopt;
        }
        const std::string name(text.substr(open + 1, close - open - 1));
        if (const auto value = name.empty() ? std::nullopt : environmentVariable(name.c_str())) {
            expanded.append(text.substr(0, open)).append(*value);
            text.remove_prefix(close + 1);
        } else {
            // The closing sign may open the next reference.
            expanded.append(text.substr(0, close));
            text.remove_prefix(close);
        }
    }
    return std::nullopt;
}

std::string expandEnvironmentReferences(std::string_view text) {
    auto expanded = IsRemotePath(text) ? std::nullopt : tryExpandEnvironmentReferences(text);
    return expanded && !IsRemotePath(*expanded) ? std::move(*expanded) : std::string(text);
}

} // namespace platform
