#include "dialog/shell/settingsxmlreader.h"

#include "dialog/shell/pagemanager.h"
#include "dialog/widgets/messagebox.h"
#include "platform/paths.h"
#include "platform/printable.h"
#include "platform/readfile.h"
#include "suite/configuration.h"

#include <QtWidgets/QApplication>
#include <libxml/parser.h>

namespace ovsettings {

namespace {

CatalogueEnd readFile(const std::string& path, CCategories& categories, std::string& problem) {
    const auto file = platform::resolveExisting(path);
    std::string bytes;
    if (const auto failure = platform::readFile(file.value_or(path), bytes)) {
        problem = failure->text();
        return CatalogueEnd::noDocument;
    }
    const CatalogueEnd end = readCatalogue(bytes, categories, problem);
    if (!problem.empty())
        problem.insert(0, path + ": ");
    return end;
}

} // namespace

CSettingsXmlReader::CSettingsXmlReader(CPageManager& manager) : manager_(manager) {
}

bool CSettingsXmlReader::read(const std::string& path) {
    if (!loaded_)
        xmlInitParser();
    std::string problem;
    const CatalogueEnd end = readFile(path, manager_, problem);
    // The box says little; whoever maintains the file needs the place. A manager that does not know the call
    // writes the line to standard error as it gets it.
    if (!problem.empty())
        Orv::IOvConfigurationManager::Instance().ReportError(platform::printable(problem));
    if (end == CatalogueEnd::noDocument)
        showMessage(QApplication::activeWindow(), QStringLiteral("File not found\n"));
    if (end == CatalogueEnd::foreignElement)
        showMessage(QApplication::activeWindow(), QStringLiteral("Error during XML parsing\n"));
    loaded_ = end != CatalogueEnd::noDocument && end != CatalogueEnd::noRoot;
    return loaded_;
}

} // namespace ovsettings
