// Writes which pages show a setting, for the program that opens no window. It runs while that is built.

#include "dialog/shell/internalpages.h"
#include "dialog/shell/pagesettings.h"

#include <fstream>
#include <set>

int main(int, char** arguments) {
    std::set<std::pair<std::string, std::string>> pages;
    for (const ovsettings::PageRow& page : ovsettings::internalPages()) {
        for (const ovsettings::PageSetting& setting : ovsettings::settingsOf(page))
            pages.emplace(setting.name.substr(0, setting.name.find('.')), page.name);
    }
    std::ofstream file(arguments[1]);
    for (const auto& [key, page] : pages)
        file << "{\"" << key << "\", \"" << page << "\"},\n";
    return file.flush() && !pages.empty() ? 0 : 1;
}
