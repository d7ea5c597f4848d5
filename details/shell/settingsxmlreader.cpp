#include "details/shell/settingsxmlreader.h"

#include "details/platform/paths.h"
#include "details/platform/readfile.h"
#include "details/shell/pagemanager.h"
#include "details/widgets/messagebox.h"

#include <QtWidgets/QApplication>
#include <libxml/parser.h>

namespace ovsettings {

namespace {

CatalogueEnd readFile(const std::string& path, CCategories& categories) {
    const auto file = platform::resolveExisting(path);
    std::string bytes;
    if (!file || platform::readFile(*file, bytes))
        return CatalogueEnd::noDocument;
    return readCatalogue(bytes, categories);
}

} // namespace

CSettingsXmlReader::CSettingsXmlReader(CPageManager& manager) : manager_(manager) {
}

bool CSettingsXmlReader::read(const std::string& path) {
    if (!loaded_)
        xmlInitParser();
    const CatalogueEnd end = readFile(path, manager_);
    if (end == CatalogueEnd::noDocument)
        showMessage(QApplication::activeWindow(), QStringLiteral("File not found\n"));
    if (end == CatalogueEnd::foreignElement)
        showMessage(QApplication::activeWindow(), QStringLiteral("Error during XML parsing\n"));
    loaded_ = end != CatalogueEnd::noDocument && end != CatalogueEnd::noRoot;
    return loaded_;
}

} // namespace ovsettings
