// The reader of the catalogue of pages.

#include "dialog/shell/categories.h"
#include "fuzz/support.h"

using fuzz::require;
using namespace ovsettings;

namespace {

/// In elements.
constexpr int kDeepest = 255;
constexpr std::size_t kShortestCategory = std::string_view("<dialog/>").size();

std::size_t countNodes(const CategoryNodes& nodes, const CCategoryNode* parent, int depth) {
    require(depth < kDeepest);
    std::size_t count = nodes.size();
    for (const auto& node : nodes) {
        require(node && node->parent == parent && !node->supplier);
        count += countNodes(node->children, node.get(), depth + 1);
    }
    return count;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Catalogue catalogue = readCatalogue(std::string(fuzz::textOf(data, size)));
    const bool isRead = catalogue.end != CatalogueEnd::noDocument;
    require(isRead || catalogue.roots.empty());
    require(!isRead || catalogue.end == CatalogueEnd::whole || !catalogue.problem.empty());
    require(countNodes(catalogue.roots, nullptr, 0) * kShortestCategory <= size);
    return 0;
}
