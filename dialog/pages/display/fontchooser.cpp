#include "dialog/pages/display/fontchooser.h"

#include <QtCore/QStringListModel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListView>

namespace ovsettings {

FontChooser::FontChooser(const QFont& start, const QString& face, QWidget* parent)
    : QFontDialog(start, parent) {
    setOption(DontUseNativeDialog);
    setWindowTitle(tr("Edit mapping"));
    if (!face.isEmpty() && currentFont().family().compare(face, Qt::CaseInsensitive) != 0)
        showMissingFace(face);
    if (!faces_)
        return;
    // For another writing system the toolkit makes its list anew, and then chooses a face by itself.
    connect(faces_->model(), &QAbstractItemModel::modelAboutToBeReset, this, [this, face] {
        if (!hasFace())
            QMetaObject::invokeMethod(
                this, [this, face] { showMissingFace(face); }, Qt::QueuedConnection);
    });
}

/// The toolkit's lists and fields have no names; faces come first, then their styles.
void FontChooser::showMissingFace(const QString& face) {
    const auto lists = findChildren<QListView*>();
    const auto fields = findChildren<QLineEdit*>();
    if (lists.size() < 2 || fields.size() < 2)
        return;
    lists[0]->setCurrentIndex({});
    // The styles are those of the face that was not chosen.
    if (auto* styles = qobject_cast<QStringListModel*>(lists[1]->model()))
        styles->setStringList({});
    fields[0]->setText(face);
    fields[1]->clear();
    faces_ = lists[0];
}

bool FontChooser::hasFace() const {
    return !faces_ || faces_->currentIndex().isValid();
}

} // namespace ovsettings
