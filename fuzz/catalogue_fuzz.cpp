// The reader of the catalogue of pages.

#include "dialog/shell/categories.h"
#include "fuzz/support.h"

using fuzz::require;
using namespace ovsettings;

namespace {

/// In the parser's elements: its own limit.
constexpr int kDeepest = 256;
constexpr std::size_t kShortestCategory = std::string_view("<dialog/>").size();

std::size_t countNodes(const CCategories::Nodes& nodes, const CCategoryNode* parent, int depth) {
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
    CCategories categories;
    std::string problem;
    const CatalogueEnd end = readCatalogue(fuzz::textOf(data, size), categories, problem);
    const bool isRead = end != CatalogueEnd::noDocument && end != CatalogueEnd::noRoot;
    require(isRead || categories.roots().empty());
    require(countNodes(categories.roots(), nullptr, 0) * kShortestCategory <= size);
    // What is still open is a chain down from the root, which the next category would go under.
    for (const CCategoryNode* open = categories.pop(); open; open = categories.pop())
        require(!categories.top() || open->parent == categories.top());
    const CCategories::Nodes taken = categories.take();
    require(categories.roots().empty() && !categories.top());
    return 0;
}
