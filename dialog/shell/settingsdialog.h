#pragma once

#include "dialog/shell/captionmap.h"
#include "dialog/shell/madepages.h"
#include "dialog/shell/settingsupdater.h"

#include <QtCore/QPointer>
#include <QtWidgets/QDialog>

#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QTreeWidgetItem;
class QWindow;

namespace Orv {
class iAppConfiguration;
class IUpdater;
struct CProjectConfiguration;
} // namespace Orv

namespace ovsettings {

namespace Ui {
class CSettingsDialog;
}

class CPageManager;
class CPageStarter;
struct Category;

/// One item of the category tree.
struct CCategoryItem {
    QTreeWidgetItem* item;
    std::string name; ///< the catalogue's untranslated name, which is what is stored as the last page
    std::unique_ptr<CPageStarter> starter;
};

/// The modal frame: the tree of categories, one page at a time, the buttons, and what is asked at closing.
///
/// A category and its page go by one index, from 0, in the order in which the categories were added.
class CSettingsDialog : public QDialog {
    Q_OBJECT

public:
    CSettingsDialog(Orv::iAppConfiguration& appConfig, Orv::CProjectConfiguration& projectConfig,
                    Orv::IUpdater* hostUpdater, QWidget* parent = nullptr);
    ~CSettingsDialog() override;

    /// @param fileName bare name, in place of "settings.xml".
    void setCatalogueFile(const std::string& fileName);

    /// Initialises the dialog and runs it. @return the modal result, 1 once a commit has found every page
    /// valid.
    /// @throws what a page or an updater threw while the dialog ran.
    int DoModal();

    /// For a page that stores something the host must know of before the commit has ended.
    void notifyUpdaters();

    bool eventFilter(QObject* watched, QEvent* event) override;
    QSize sizeHint() const override;

public Q_SLOTS:
    void accept() override;
    /// Escape and the close box: asks once where a page has edits that are not stored, then cancels.
    void reject() override;

private:
    void OnInitDialog();
    void connectControls();
    /// Adds a category as the last child of its parent's item.
    void addCategory(Category category);
    void showLastPage();

    bool mayLeave(const QTreeWidgetItem* from, const QTreeWidgetItem* to);
    void switchToPage(unsigned index);
    CPropDialogTemplate* pageOf(unsigned index);
    void adoptPage(CPropDialogTemplate& page);
    void rememberPage(const std::string& name);

    /// @return whether the dialog may close.
    bool commit(CommitKind kind);
    void showRefusedPage(unsigned index);
    void tellUnwritten();
    bool mayGiveUpEdits();
    void cancel();
    /// Ends the modal loop; its result is what the host is told.
    void finish();
    void showActivePageHelp();

    void noteActivation(const QEvent& event);
    /// Does nothing while a command, a question or another dialog is open; the refresh stays due then.
    void refreshIfDue();
    void refreshSoon();
    void refresh();

    /// Runs what the event loop calls; what it throws ends the modal loop and waits there for DoModal.
    template <typename Callback>
    void guarded(Callback callback);
    /// Runs a command of the user, or a step from page to page, unless one is running.
    template <typename Command>
    void runCommand(Command command);
    void rethrowFailure();
    void tearDown();
    void stayAbove(QWindow* host);

    std::vector<CCategoryItem> items_; ///< by index
    Orv::iAppConfiguration& appConfig_;
    MadePages pages_; ///< those that were selected once
    CSettingsUpdater updater_;
    CommitCycle cycle_;
    std::optional<unsigned> shownIndex_; ///< of the page on show, also of one that could not be made
    bool initialised_ = false;
    bool busy_ = false; ///< a command runs; a page may handle events in it, which must not start another
    bool wasInactive_ = false; ///< the application has left the front and not come back yet
    bool refreshDue_ = false;  ///< the application has come to the front again since the last refresh
    QPointer<CPropDialogTemplate> currentPage_; ///< the page on show, which is asked on leaving
    std::unique_ptr<CPageManager> manager_;
    std::string catalogueFile_;
    CCaptionMap captions_;
    std::exception_ptr failure_;
    std::unique_ptr<Ui::CSettingsDialog> ui_;
};

} // namespace ovsettings
