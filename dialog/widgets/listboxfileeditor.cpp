#include "dialog/widgets/listboxfileeditor.h"

#include "dialog/widgets/plainfiledialog.h"
#include "dialog/widgets/stringconversion.h"
#include "platform/paths.h"

#include <QtGui/QShortcut>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QToolButton>

namespace ovsettings {

namespace {

QString existingDirectoryOf(const QString& file) {
    const std::string path = toUtf8(file);
    return toQString(platform::resolveExisting(platform::splitPath(path).directory).value_or(""));
}

} // namespace

ListBoxFileEditor::ListBoxFileEditor(QWidget* parent) : ListBoxEditor(parent) {
    constexpr auto kKey = Qt::Key_F4;
    const QToolButton& button = addButton(QStringLiteral("browse"), tr("Browse..."), kKey);
    connect(&button, &QToolButton::clicked, this, &ListBoxFileEditor::browse);
    auto* shortcut = new QShortcut(kKey, &list());
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, this, &ListBoxFileEditor::browse);
    setPlaceForNew(true);
    setLines({});
}

void ListBoxFileEditor::browse() {
    cancelEditing();
    const int row = currentRow() < 0 ? lineCount() - 1 : currentRow();
    PlainFileDialog dialog(window(), tr("Select File"), existingDirectoryOf(line(row)), tr("All Files (*)"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (dialog.exec() == QDialog::Accepted)
        enterText(row, dialog.selectedFiles().value(0));
}

} // namespace ovsettings
