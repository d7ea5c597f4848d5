#include "dialog/shell/settingsxmlreader.h"

#include "dialog/widgets/messagebox.h"
#include "platform/paths.h"
#include "platform/printable.h"
#include "platform/readfile.h"
#include "suite/configuration.h"

#include <QtWidgets/QApplication>

#include <utility>

namespace ovsettings {

CSettingsXmlReader::CSettingsXmlReader(std::string path) : path_(std::move(path)) {
}

CategoryNodes CSettingsXmlReader::read() const {
    Catalogue catalogue = readFile();
    // The box says little; whoever maintains the file needs the place.
    if (!catalogue.problem.empty())
        Orv::IOvConfigurationManager::Instance().ReportError(platform::printable(catalogue.problem));
    if (catalogue.end == CatalogueEnd::noDocument)
        showMessage(QApplication::activeWindow(), QStringLiteral("File not found\n"));
    if (catalogue.end == CatalogueEnd::foreignElement)
        showMessage(QApplication::activeWindow(), QStringLiteral("Error during XML parsing\n"));
    return std::move(catalogue.roots);
}

Catalogue CSettingsXmlReader::readFile() const {
    Catalogue catalogue;
    const auto file = platform::resolveExisting(path_);
    const auto bytes = platform::readFile(file.value_or(path_));
    if (!bytes) {
        catalogue.problem = bytes.errorText();
        return catalogue;
    }
    catalogue = readCatalogue(*bytes);
    if (!catalogue.problem.empty())
        catalogue.problem.insert(0, path_ + ": ");
    return catalogue;
}

} // namespace ovsettings
