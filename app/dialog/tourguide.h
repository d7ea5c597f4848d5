#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QPointer>
#include <QtCore/QSize>
#include <QtCore/QTimer>
#include <QtWidgets/QTreeWidget>

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace ovsettings {
class CPropDialogTemplate;
}

namespace app {

/// One picture of the tour: a category that it came to, a further view of its page, or a dialog of it.
struct TourStop {
    std::string caption;   ///< of the category, and behind it what is checked or the title of the dialog
    std::string file;      ///< name of the picture; empty if it could not be written
    std::string pageClass; ///< class of the page on show; empty if there was none
    QSize size;            ///< of the picture, in pixels
};

/// Waits for the settings dialog, walks through its categories, takes a picture at each, and cancels the
/// dialog. Every other modal box that comes up meanwhile is noted and closed. It begins by itself, in the
/// modal loop.
class TourGuide {
public:
    /// @param directory where the pictures go; must exist.
    /// @param size      what the dialog is resized to; its own size if absent.
    TourGuide(std::filesystem::path directory, std::optional<QSize> size);

    /// Where a page did not let itself be left, the dialog is cancelled, and the tour goes on in the next
    /// one.
    /// @return name, as in the catalogue, of the category at which to open it, or nothing if no category is
    /// left.
    std::optional<std::string> takeUp();

    /// Ends the tour; a dialog that comes later is left alone.
    void finish();

    void note(std::string text);
    /// One that could not be reached has no size.
    const std::vector<TourStop>& stops() const { return stops_; }
    /// The categories whose pages did not let themselves be left.
    const std::set<std::string>& clinging() const { return clinging_; }
    const std::vector<std::string>& notes() const { return notes_; }

private:
    void closeBox();
    void visitNext();
    void meetDialog(QTreeWidget& tree);
    bool reach(QTreeWidgetItem& item);
    void visit(const QTreeWidgetItem& item);
    void takePicture(QWidget& view, const QString& caption, const std::string& pageClass);
    void takePictureOfDialog(QWidget& page, const char* buttonCaption, const QString& caption,
                             const std::string& pageClass);
    void takePictureWith(QWidget& page, const QString& radioCaption, const QString& caption,
                         const std::string& pageClass);

    std::filesystem::path directory_;
    std::optional<QSize> size_;
    // A timer does not fire inside its own handler, and a box may come up in the middle of a visit: so there
    // are two.
    QTimer visits_;
    QTimer boxes_;
    QPointer<QWidget> dialog_;
    QPointer<QWidget> declined_; ///< the box that was in the way last
    QPointer<QTreeWidget> tree_;
    QString furtherCaption_; ///< of the page whose dialog is expected; empty if none is
    std::string furtherClass_;
    QElapsedTimer looking_;
    std::set<const ovsettings::CPropDialogTemplate*> seen_;
    std::vector<QTreeWidgetItem*> route_;
    std::size_t visited_ = 0;
    std::optional<std::size_t> retried_; ///< where on the route the dialog was opened again
    std::optional<std::string> next_;    ///< name of the category to go on at, in another dialog
    std::set<std::string> clinging_;
    std::vector<TourStop> stops_;
    std::vector<std::string> notes_;
};

} // namespace app
