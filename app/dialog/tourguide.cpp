#include "app/dialog/tourguide.h"

#include "app/dialog/replacefile.h"

#include <ovsettings/propdialogtemplate.h>
#include <ovsettings/showsettingsdialog.h>

#include <QtCore/QBuffer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QTreeWidgetItemIterator>

#include <cxxabi.h>

#include <cstdlib>
#include <memory>
#include <typeinfo>
#include <utility>

namespace app {

namespace {

constexpr qsizetype kLongestName = 60;

/// A page that looks another way with a radio button of it checked; each such button gets a picture too.
struct FurtherView {
    const char* pageClass;
    const char* radioCaption;
};

constexpr FurtherView kFurtherViews[] = {
    {"CObjectColorDialog", "ICT"},
};

/// A dialog that a page opens, by a button of it or, where none is named, by editing the first line of its
/// list.
struct FurtherDialog {
    const char* pageClass;
    const char* button;
};

constexpr FurtherDialog kFurtherDialogs[] = {
    {"CLibrariesDialog", "New"},      {"CLibrariesDialog", nullptr},    {"CSpecialComponentsDialog", "New"},
    {"CBordersDialog", "Properties"}, {"CBordersDialog", "Add Custom"},
};

/// In milliseconds: a dialog that looks something up shows by then what it found.
constexpr qint64 kLookingTime = 400;

// Letters and digits of any script stay; each run of other characters becomes one "-".
std::string fileNameOf(std::size_t number, const QString& caption) {
    QString name;
    for (const QChar c : caption) {
        if (c.isLetterOrNumber())
            name += c;
        else if (!name.isEmpty() && !name.endsWith(u'-'))
            name += u'-';
    }
    name.truncate(kLongestName);
    while (name.endsWith(u'-'))
        name.chop(1);
    if (name.isEmpty())
        name = QStringLiteral("unnamed");
    return QStringLiteral("%1-%2.png").arg(number, 2, 10, QLatin1Char('0')).arg(name).toStdString();
}

// The class without its namespaces. The meta object is of no use: a page need not have one of its own.
std::string classOf(const ovsettings::CPropDialogTemplate& page) {
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> readable(
        abi::__cxa_demangle(typeid(page).name(), nullptr, nullptr, &status), &std::free);
    const std::string name = readable ? readable.get() : typeid(page).name();
    const auto scope = name.rfind("::");
    return scope == std::string::npos ? name : name.substr(scope + 2);
}

ovsettings::CPropDialogTemplate* shownPage(const QWidget& dialog) {
    for (auto* page : dialog.findChildren<ovsettings::CPropDialogTemplate*>()) {
        if (page->isVisible() && page->hasWindow())
            return page;
    }
    return nullptr;
}

// The answer that changes least: the one that Escape gives, else No, else what Enter gives, else none at all.
void decline(QWidget& modal) {
    if (auto* box = qobject_cast<QMessageBox*>(&modal)) {
        for (QAbstractButton* answer : {box->escapeButton(), box->button(QMessageBox::No),
                                        static_cast<QAbstractButton*>(box->defaultButton())}) {
            if (answer) {
                answer->click();
                return;
            }
        }
    }
    if (auto* dialog = qobject_cast<QDialog*>(&modal))
        dialog->reject();
    else
        modal.close();
}

// Unlike Escape, the button does not ask about what the tour has left behind on a page.
void cancel(QWidget& dialog) {
    // By its name: its caption is in the user's language.
    if (auto* button = dialog.findChild<QPushButton*>(QStringLiteral("cancelButton")))
        button->click();
    else
        decline(dialog);
}

std::string textOf(const QWidget& modal) {
    const auto* box = qobject_cast<const QMessageBox*>(&modal);
    const QString text = box ? box->text() : modal.windowTitle();
    return (box ? "message box: " : "dialog: ") + text.simplified().toStdString();
}

} // namespace

TourGuide::TourGuide(std::filesystem::path directory, std::optional<QSize> size)
    : directory_(std::move(directory)), size_(size) {
    QObject::connect(&visits_, &QTimer::timeout, [this] { visitNext(); });
    QObject::connect(&boxes_, &QTimer::timeout, [this] { closeBox(); });
    visits_.start(0);
    boxes_.start(0);
}

std::optional<std::string> TourGuide::takeUp() {
    auto next = std::exchange(next_, std::nullopt);
    if (next) {
        route_.clear();
        seen_.clear();
        visits_.start(0);
    }
    return next;
}

void TourGuide::finish() {
    visits_.stop();
    boxes_.stop();
}

void TourGuide::note(std::string text) {
    notes_.push_back(std::move(text));
}

// Every modal widget but the one with the category tree is a box in the way.
void TourGuide::closeBox() {
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal || !modal->isVisible() || modal == dialog_)
        return;
    if (!dialog_ && modal->findChild<QTreeWidget*>())
        return;
    if (!furtherCaption_.isEmpty() && qobject_cast<QDialog*>(modal) && !qobject_cast<QMessageBox*>(modal)) {
        if (!looking_.isValid())
            looking_.start();
        if (looking_.elapsed() < kLookingTime)
            return;
        takePicture(*modal, furtherCaption_ + QLatin1Char(' ') + modal->windowTitle(), furtherClass_);
        furtherCaption_.clear();
        decline(*modal);
        return;
    }
    // One that does not let itself be closed is noted once.
    if (modal != declined_)
        note(textOf(*modal));
    declined_ = modal;
    decline(*modal);
}

void TourGuide::visitNext() {
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal || !modal->isVisible())
        return;
    if (!dialog_) {
        auto* tree = modal->findChild<QTreeWidget*>();
        if (!tree)
            return;
        dialog_ = modal;
        meetDialog(*tree);
    }
    if (modal != dialog_)
        return;
    if (visited_ < route_.size() && reach(*route_[visited_])) {
        visit(*route_[visited_++]);
        return;
    }
    visits_.stop();
    if (!dialog_)
        return;
    if (visited_ < route_.size())
        next_ = route_[visited_]->data(0, ovsettings::kCategoryNameRole).toString().toStdString();
    cancel(*dialog_);
}

void TourGuide::meetDialog(QTreeWidget& tree) {
    tree_ = &tree;
    for (QTreeWidgetItemIterator item(&tree); *item; ++item)
        route_.push_back(*item);
    if (size_)
        dialog_->resize(*size_);
}

/// @return false if the page on show does not let itself be left.
bool TourGuide::reach(QTreeWidgetItem& item) {
    const std::string caption = item.text(0).toStdString();
    tree_->setCurrentItem(&item);
    QApplication::processEvents();
    if (dialog_ && tree_->currentItem() == &item)
        return true;
    if (dialog_ && tree_->currentItem())
        clinging_.insert(tree_->currentItem()->text(0).toStdString());
    // Each category is tried in one more dialog only.
    if (!dialog_ || retried_ == visited_) {
        stops_.push_back({caption, {}, {}, {}});
        ++visited_;
    }
    retried_ = visited_;
    return false;
}

void TourGuide::visit(const QTreeWidgetItem& item) {
    const QString caption = item.text(0);
    // Each category has a page of its own; one that was on show before has stayed because this one has none.
    auto* page = shownPage(*dialog_);
    const std::string pageClass = page && seen_.insert(page).second ? classOf(*page) : std::string();
    takePicture(*dialog_, caption, pageClass);
    for (const FurtherView& view : kFurtherViews) {
        if (pageClass == view.pageClass)
            takePictureWith(*page, QString::fromUtf8(view.radioCaption), caption, pageClass);
    }
    for (const FurtherDialog& further : kFurtherDialogs) {
        if (pageClass == further.pageClass)
            takePictureOfDialog(*page, further.button, caption, pageClass);
    }
}

void TourGuide::takePictureOfDialog(QWidget& page, const char* buttonCaption, const QString& caption,
                                    const std::string& pageClass) {
    furtherCaption_ = caption;
    furtherClass_ = pageClass;
    looking_.invalidate();
    if (buttonCaption) {
        for (auto* button : page.findChildren<QAbstractButton*>()) {
            if (button->text().remove(QLatin1Char('&')) == QLatin1String(buttonCaption))
                button->click();
        }
    } else if (auto* list = page.findChild<QListWidget*>(); list && list->count() > 0) {
        list->setCurrentRow(0);
        QKeyEvent edit(QEvent::KeyPress, Qt::Key_F2, Qt::NoModifier);
        QApplication::sendEvent(list, &edit);
        QApplication::processEvents(); // a page may put the edit off until its list is done with the key
    }
    // A button that is disabled, or opens nothing here.
    furtherCaption_.clear();
}

void TourGuide::takePictureWith(QWidget& page, const QString& radioCaption, const QString& caption,
                                const std::string& pageClass) {
    for (auto* radio : page.findChildren<QRadioButton*>()) {
        if (radio->text().remove(QLatin1Char('&')) != radioCaption)
            continue;
        radio->setChecked(true);
        QApplication::processEvents();
        takePicture(*dialog_, caption + QLatin1Char(' ') + radioCaption, pageClass);
    }
}

void TourGuide::takePicture(QWidget& view, const QString& caption, const std::string& pageClass) {
    TourStop stop{caption.toStdString(), {}, pageClass, {}};
    const QPixmap picture = view.grab();
    const std::string file = fileNameOf(stops_.size() + 1, caption);
    QBuffer bytes;
    if (picture.save(&bytes, "PNG") && replaceFile(directory_ / file, bytes.data()))
        stop.file = file;
    stop.size = picture.size();
    stops_.push_back(std::move(stop));
}

} // namespace app
