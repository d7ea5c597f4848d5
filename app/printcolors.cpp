// The command that shows what becomes of each object's colour in print: print-colors.

#include "app/columns.h"
#include "app/commands.h"
#include "app/outcome.h"
#include "app/output.h"
#include "app/workspace.h"

#include <orv/colorscheme.h>
#include <orv/printingaccess.h>

#include <nlohmann/json.hpp>

#include <iostream>

namespace app {

namespace {

struct ObjectColors {
    int number;
    std::string key;
    std::string screen;
    std::string print;
};

/// @param configuration is set to printing; it is not saved.
std::vector<ObjectColors> objectColors(Orv::iAppConfiguration& configuration) {
    const Orv::CPrintingAccess access(configuration);
    configuration.setNumber("PRINTING", 1.0F);
    std::vector<ObjectColors> rows;
    for (int number = 0; !Orv::CPrintingAccess::objectKey(number).empty(); ++number) {
        Orv::ObjectAttributes screen;
        Orv::ObjectAttributes print;
        access.getObject(number, screen);
        access.getPrintObject(number, print);
        rows.push_back(
            {number, screen.name, Orv::packedColorText(screen.color), Orv::packedColorText(print.color)});
    }
    return rows;
}

void writeTable(std::ostream& out, const std::vector<ObjectColors>& colors) {
    std::vector<std::vector<std::string>> rows{{"NUMBER", "OBJECT", "SCREEN", "PRINT"}};
    for (const ObjectColors& row : colors)
        rows.push_back({std::to_string(row.number), row.key, row.screen, row.print});
    writeColumns(out, rows);
}

nlohmann::json toJson(const std::vector<ObjectColors>& colors) {
    nlohmann::json array = nlohmann::json::array();
    for (const ObjectColors& row : colors) {
        array.push_back(
            {{"number", row.number}, {"object", row.key}, {"screen", row.screen}, {"print", row.print}});
    }
    return array;
}

} // namespace

int runPrintColors(const Options& options, Arguments arguments) {
    const bool json = arguments.size() == 1 && arguments.front() == "--json";
    if (!json && !arguments.empty())
        return misuse("print-colors takes --json and nothing else");
    Orv::iAppConfiguration configuration;
    if (!openToRead(options, configuration))
        return kRefused;
    const auto colors = objectColors(configuration);
    if (json)
        writeJson(std::cout, toJson(colors));
    else
        writeTable(std::cout, colors);
    return kDone;
}

} // namespace app
