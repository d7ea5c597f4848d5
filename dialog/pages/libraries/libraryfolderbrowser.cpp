#include "dialog/pages/libraries/libraryfolderbrowser.h"

#include "dialog/shell/stringtable.h"
#include "dialog/widgets/stringconversion.h"
#include "platform/remotefile.h"

#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>

namespace ovsettings {

namespace {

constexpr unsigned kTitle = 27;

using platform::PathKind;

struct Content {
    const char* name;
    const char* extension;
    PathKind kind;
    const char* label;
};

constexpr Content kContents[] = {
    {"sym", "lib", PathKind::file, QT_TRANSLATE_NOOP("ovsettings::LibraryFolderBrowser", "Symbols[M]")},
    {"sch", "lib", PathKind::file, QT_TRANSLATE_NOOP("ovsettings::LibraryFolderBrowser", "Schematics[M]")},
    {"sch", "", PathKind::directory, QT_TRANSLATE_NOOP("ovsettings::LibraryFolderBrowser", "Schematics")},
    {"sym", "", PathKind::directory, QT_TRANSLATE_NOOP("ovsettings::LibraryFolderBrowser", "Symbols")},
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
    for (const Content& content : kContents) {
        const std::string path = platform::MakeFilePath(toUtf8(folder), content.name, content.extension);
        if (platform::TestPathKind(path, content.kind) == 0)
            summary += tr(content.label) + QLatin1Char(' ');
    }
    status_->setText(summary.isEmpty() ? tr("NOTE: No symbols or schematics found in selected directory.")
                                       : tr("Found:") + QLatin1Char(' ') + summary);
}

} // namespace ovsettings
