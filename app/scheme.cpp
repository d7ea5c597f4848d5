// The command that shows what a file of colour schemes holds: scheme show.

#include "app/columns.h"
#include "app/commands.h"
#include "app/outcome.h"
#include "platform/printable.h"

#include <orv/colorscheme.h>

#include <algorithm>
#include <iostream>

namespace app {

namespace {

using Orv::CColorScheme;

std::vector<std::vector<std::string>> layerRows(const CColorScheme& scheme) {
    std::vector<std::vector<std::string>> rows;
    for (std::size_t slot = 0; slot < CColorScheme::kColors; ++slot) {
        if (scheme.layerSlots[slot] == CColorScheme::kNoSlot)
            continue;
        rows.push_back({Orv::colorSchemeLayer(slot), std::to_string(scheme.layerSlots[slot]),
                        std::to_string(scheme.layerSecond[slot]), std::to_string(scheme.layerThird[slot])});
    }
    return rows;
}

void show(std::ostream& out, const CColorScheme& scheme) {
    out << "scheme \"" << platform::printable(scheme.name) << "\"\n";
    std::vector<std::vector<std::string>> rows{{"entry", "screen", "printer"}};
    for (std::size_t entry = 0; entry < CColorScheme::kColors; ++entry) {
        rows.push_back({std::to_string(entry), Orv::packedColorText(scheme.screenColors[entry]),
                        Orv::packedColorText(scheme.printColors[entry])});
    }
    writeColumns(out, rows, "  ");
    writeColumns(out, layerRows(scheme), "  ");
    out << '\n';
}

} // namespace

int runScheme(const Options&, Arguments arguments) {
    if (arguments.size() != 2 || arguments.front() != "show")
        return misuse("scheme takes the word show and a file");
    const Orv::ColorSchemes file = Orv::readColorSchemes(arguments.back());
    for (const CColorScheme& scheme : file.schemes)
        show(std::cout, scheme);
    if (file.error != Orv::ColorSchemeError::none)
        return refuse(file.reason);
    if (file.schemes.empty())
        std::cout << "no schemes\n";
    return kDone;
}

} // namespace app
