#include "dialog/pages/libraries/libraryfolderbrowser.h"

#include "dialog/shell/stringtable.h"
#include "dialog/widgets/stringconversion.h"
#include "suite/zec.h"

#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>

namespace ovsettings {

namespace {

constexpr unsigned kTitle = 27;

struct Label {
    ZECContent content;
    const char* text;
};

constexpr Label kLabels[] = {
    {ZECContent::symbolMegafile, QT_TRANSLATE_NOOP("ovsettings::LibraryFolderBrowser", "Symbols[M]")},
    {ZECContent::schematicMegafile, QT_TRANSLATE_NOOP("ovsettings::LibraryFolderBrowser", "Schematics[M]")},
    {ZECContent::schematics, QT_TRANSLATE_NOOP("ovsettings::LibraryFolderBrowser", "Schematics")},
    {ZECContent::symbols, QT_TRANSLATE_NOOP("ovsettings::LibraryFolderBrowser", "Symbols")},
};

} // namespace

LibraryFolderBrowser::LibraryFolderBrowser(QWidget* parent, const std::string& directory)
    : PlainFileDialog(parent, toQString(stringForUser(kTitle)), toQString(directory)),
      status_(new QLabel(this)) {
    setOption(DontUseNativeDialog); // no other one has room for the status
    setOption(ShowDirsOnly);
    setFileMode(Directory);
    status_->setObjectName(QStringLiteral("status"));
    status_->setTextFormat(Qt::PlainText);
    if (auto* grid = qobject_cast<QGridLayout*>(layout()))
        grid->addWidget(status_, grid->rowCount(), 0, 1, -1);
    connect(this, &QFileDialog::currentChanged, this, &LibraryFolderBrowser::showContents);
    connect(this, &QFileDialog::directoryEntered, this, &LibraryFolderBrowser::showContents);
    showContents(toQString(directory));
}

std::string LibraryFolderBrowser::run() {
    if (exec() != Accepted)
        return {};
    const QStringList chosen = selectedFiles();
    return chosen.isEmpty() ? std::string() : toUtf8(chosen.front());
}

void LibraryFolderBrowser::showContents(const QString& folder) {
    QString summary;
    for (const Label& label : kLabels) {
        if (ZECHolds(toUtf8(folder), label.content))
            summary += tr(label.text) + QLatin1Char(' ');
    }
    status_->setText(summary.isEmpty() ? tr("NOTE: No symbols or schematics found in selected directory.")
                                       : tr("Found:") + QLatin1Char(' ') + summary);
}

} // namespace ovsettings
