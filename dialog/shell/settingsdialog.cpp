#include "dialog/shell/settingsdialog.h"

#include "dialog/shell/dialogunits.h"
#include "dialog/shell/followsconfiguration.h"
#include "dialog/shell/pagemanager.h"
#include "dialog/shell/pagestarter.h"
#include "dialog/shell/stringtable.h"
#include "dialog/widgets/messagebox.h"
#include "dialog/widgets/stringconversion.h"
#include "dialog/widgets/waitcursor.h"
#include "dialog/widgets/wheelguard.h"
#include "orv/appconfiguration.h"
#include "ovsettings/showsettingsdialog.h"
#include "platform/installation.h"
#include "platform/plaintext.h"
#include "store/appcfg.h"
#include "ui_settingsdialog.h"

#include <QtCore/QScopedValueRollback>
#include <QtGui/QIcon>
#include <QtGui/QKeyEvent>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QScrollBar>

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace ovsettings {

namespace {

constexpr char kDefaultCatalogue[] = "settings.xml";
constexpr char kLastPageKey[] = "MRU_SETTINGS";
constexpr unsigned kFirstCaption = 20001;

// The template's sizes, in dialog units.
constexpr QSize kClientSize(504, 266);
constexpr QSize kButtonSize(50, 16);

constexpr int kPageIndexRole = Qt::UserRole;

unsigned pageIndex(const QTreeWidgetItem* item) {
    return item ? item->data(0, kPageIndexRole).toUInt() : 0;
}

void setShown(CPropDialogTemplate* page, bool shown) {
    if (page && page->hasWindow())
        page->setVisible(shown);
}

/// "NET.COLOR", or the key alone where its fields have no names.
std::string fieldName(const std::string& key, std::size_t field) {
    const auto names = Orv::iAppConfiguration::fieldNames(Orv::iAppConfiguration::kindOf(key));
    return field < names.size() ? key + '.' + names[field] : key;
}

/// The controls of a page that Tab stops at, in order. Of a radio group all buttons are among them: Tab stops
/// at the checked one only, and which one that is changes.
QWidgetList tabStops(CPropDialogTemplate& page) {
    QWidgetList stops;
    for (QWidget* widget = page.nextInFocusChain(); widget != &page; widget = widget->nextInFocusChain()) {
        if (page.isAncestorOf(widget) && widget->focusPolicy() != Qt::NoFocus && !widget->focusProxy())
            stops.append(widget);
    }
    return stops;
}

} // namespace

CSettingsDialog::CSettingsDialog(Orv::iAppConfiguration& appConfig, Orv::CProjectConfiguration& projectConfig,
                                 Orv::IUpdater* hostUpdater, QWidget* parent)
    : QDialog(parent),
      appConfig_(appConfig),
      pages_(appConfig),
      cycle_(pages_, updater_),
      catalogueFile_(kDefaultCatalogue),
      ui_(std::make_unique<Ui::CSettingsDialog>()) {
    ui_->setupUi(this);
    // A host without another visible window goes on when the dialog closes.
    setAttribute(Qt::WA_QuitOnClose, false);
    updater_.addUpdater(hostUpdater);
    manager_ = std::make_unique<CPageManager>(appConfig, projectConfig, updater_);
}

CSettingsDialog::~CSettingsDialog() {
    tearDown();
}

void CSettingsDialog::tearDown() {
    qApp->removeEventFilter(this);
    // The pages go before the suppliers that made them.
    pages_.deleteAll();
    if (const auto manager = std::move(manager_))
        manager->release();
}

void CSettingsDialog::setCatalogueFile(const std::string& fileName) {
    catalogueFile_ = fileName;
}

int CSettingsDialog::DoModal() {
    // Asked now and not later: where the initialisation shows a message box, no window is active after it.
    const QPointer<QWindow> host = QGuiApplication::focusWindow();
    guarded([this] { OnInitDialog(); });
    if (!failure_) {
        stayAbove(host);
        exec();
    }
    // An add-in may throw here, too, which a destructor could not pass on.
    try {
        tearDown();
    } catch (...) {
        if (!failure_)
            failure_ = std::current_exception();
    }
    rethrowFailure();
    return cycle_.isApplied() ? 1 : 0;
}

void CSettingsDialog::rethrowFailure() {
    if (failure_)
        std::rethrow_exception(failure_);
}

template <typename Callback>
void CSettingsDialog::guarded(Callback callback) {
    if (failure_)
        return;
    try {
        callback();
    } catch (...) {
        failure_ = std::current_exception();
        finish();
    }
}

template <typename Command>
void CSettingsDialog::runCommand(Command command) {
    if (busy_)
        return;
    const QScopedValueRollback<bool> busy(busy_, true);
    guarded(command);
    refreshSoon();
}

/// The host's window, of whatever toolkit class, stays behind the dialog without owning it.
void CSettingsDialog::stayAbove(QWindow* host) {
    if (!host && QApplication::activeWindow())
        host = QApplication::activeWindow()->windowHandle();
    while (host && host->parent())
        host = host->parent();
    if (!host)
        return;
    winId(); // makes the window that the relation is set on
    windowHandle()->setTransientParent(host);
}

void CSettingsDialog::OnInitDialog() {
    connectControls();
    for (QPushButton* button : {ui_->okButton, ui_->applyButton, ui_->cancelButton, ui_->helpButton})
        button->setMinimumSize(fromDialogUnits(*this, kButtonSize));
    resize(sizeHint()); // by itself a window keeps to two thirds of the screen
    captions_.setLanguages(kEnglish, userLanguageId());
    captions_.load(kFirstCaption, lastStringId(kEnglish));
    setWindowIcon(QIcon(QStringLiteral(":/ovsettings/images/settings.svg")));
    const std::string path = platform::installationDirectory() + "/standard/" + catalogueFile_;
    if (!manager_->read(path)) {
        showMessage(this, toQString("Can not load " + path + " file."));
        return;
    }
    for (Category& category : manager_->build())
        addCategory(std::move(category));
    ui_->tree->expandAll();
    showLastPage();
    ui_->tree->setFocus();
    initialised_ = true;
}

void CSettingsDialog::connectControls() {
    connect(ui_->okButton, &QPushButton::clicked, this, &CSettingsDialog::accept);
    connect(ui_->applyButton, &QPushButton::clicked, this,
            [this] { runCommand([this] { commit(CommitKind::apply); }); });
    connect(ui_->cancelButton, &QPushButton::clicked, this, [this] { runCommand([this] { cancel(); }); });
    connect(ui_->helpButton, &QPushButton::clicked, this, &CSettingsDialog::showActivePageHelp);

    ui_->tree->setLeaveCheck([this](const QTreeWidgetItem* from, const QTreeWidgetItem* to) {
        bool allowed = false;
        runCommand([&] { allowed = mayLeave(from, to); });
        return allowed;
    });
    connect(ui_->tree, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
        if (item)
            runCommand([this, item] { switchToPage(pageIndex(item)); });
    });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (now && ui_->pageHost->isAncestorOf(now))
            ui_->pageArea->ensureWidgetVisible(now);
    });
    qApp->installEventFilter(this);
}

QSize CSettingsDialog::sizeHint() const {
    const QSize wanted = fromDialogUnits(*this, kClientSize);
    const QSize available = screen() ? screen()->availableSize() * 9 / 10 : wanted;
    return wanted.boundedTo(available);
}

void CSettingsDialog::addCategory(Category category) {
    const std::string caption = category.isTranslated ? captions_.translate(category.name) : std::string();
    auto* item =
        new QTreeWidgetItem({platform::shortened(toQString(caption.empty() ? category.name : caption))});
    item->setData(0, kPageIndexRole, static_cast<unsigned>(items_.size()));
    item->setData(0, kCategoryNameRole, toQString(category.name));
    if (category.parentKey == 0)
        ui_->tree->addTopLevelItem(item);
    else
        items_[category.parentKey - 1].item->addChild(item);
    items_.push_back({item, std::move(category.name), std::move(category.starter)});
}

void CSettingsDialog::showLastPage() {
    std::vector<std::string> stored;
    Orv::getValues(appConfig_, kLastPageKey, stored);
    const std::string last = stored.empty() ? std::string() : stored.front();
    const auto shown = std::ranges::find(items_, last, &CCategoryItem::name);
    if (shown == items_.end()) {
        switchToPage(0);
        return;
    }
    ui_->tree->setCurrentItem(shown->item);
    rethrowFailure();
    switchToPage(static_cast<unsigned>(shown - items_.begin()));
}

bool CSettingsDialog::mayLeave(const QTreeWidgetItem* from, const QTreeWidgetItem* to) {
    if (!initialised_ || pageIndex(from) == pageIndex(to))
        return true;
    return !currentPage_ || currentPage_->onLeave();
}

void CSettingsDialog::switchToPage(unsigned index) {
    if (items_.empty())
        return;
    const WaitCursor cursor;
    CPropDialogTemplate* page = pageOf(index);
    if (page == currentPage_ && (page || shownIndex_ == index)) {
        setShown(page, true); // one that is served under two indices was hidden when it was adopted again
        return;
    }
    setShown(currentPage_, false);
    currentPage_ = page;
    shownIndex_ = index;
    for (QScrollBar* bar : {ui_->pageArea->horizontalScrollBar(), ui_->pageArea->verticalScrollBar()})
        bar->setValue(bar->minimum());
    if (page) {
        setShown(page, true);
        page->onEnter();
    }
    const std::string& name = items_[index].name;
    ui_->caption->setCaption(toQString(captions_.translate(name)));
    pages_.setActive(page);
    rememberPage(name);
}

CPropDialogTemplate* CSettingsDialog::pageOf(unsigned index) {
    if (const auto made = pages_.all().find(index); made != pages_.all().end())
        return made->second;
    CPropDialogTemplate* page = items_[index].starter->create(ui_->pageHost);
    if (page) {
        pages_.add(index, *page);
        adoptPage(*page);
    }
    return page;
}

void CSettingsDialog::adoptPage(CPropDialogTemplate& page) {
    if (!page.hasWindow())
        return;
    page.hide();
    ui_->pageLayout->addWidget(&page);
    installWheelGuard(page);
    // Controls made later stand last in the tab order; a page belongs between the tree and the buttons.
    QWidget* previous = ui_->tree;
    for (QWidget* stop : tabStops(page)) {
        setTabOrder(previous, stop);
        previous = stop;
    }
}

void CSettingsDialog::rememberPage(const std::string& name) {
    Orv::setValues(appConfig_, kLastPageKey, {name});
    appConfig_.save();
}

void CSettingsDialog::accept() {
    runCommand([this] {
        if (commit(CommitKind::ok))
            finish();
    });
}

void CSettingsDialog::reject() {
    runCommand([this] {
        if (mayGiveUpEdits())
            cancel();
    });
}

bool CSettingsDialog::commit(CommitKind kind) {
    ui_->notice->removeNotices();
    const CommitResult result = cycle_.commit(kind);
    if (result.refused)
        showRefusedPage(*result.refused);
    if (result.isUnwritten)
        tellUnwritten();
    return result.mayClose;
}

void CSettingsDialog::showRefusedPage(unsigned index) {
    // The tree highlights the item before the refused one, and the page of that item is on show for a moment.
    // It is meant, for hosts, which have always known the dialog by it.
    if (index > 0) {
        const QScopedValueRollback<bool> selectable(busy_, false);
        ui_->tree->setCurrentItem(items_[index - 1].item);
        rethrowFailure();
    }
    switchToPage(index);
}

void CSettingsDialog::tellUnwritten() {
    const auto directories = appConfig_.workingDirectories();
    const QString failure =
        directories.empty() || directories.front().empty()
            ? tr("The settings could not be written: there is no directory of the user.")
            : tr("The settings could not be written to %1.").arg(toQString(directories.front()));
    showMessage(this,
                failure + tr("\n\nThe dialog stays open, so that nothing is lost. Cancel closes it all "
                             "the same."),
                windowTitle());
}

bool CSettingsDialog::mayGiveUpEdits() {
    QStringList edited;
    for (const unsigned index : cycle_.pagesWithEdits())
        edited.append(items_[index].item->text(0));
    return edited.isEmpty() ||
           !askEither(
               this,
               tr("There are changes that have not been saved:\n\n%1").arg(edited.join(QLatin1Char('\n'))),
               windowTitle(), tr("Keep editing"), tr("Discard changes"));
}

void CSettingsDialog::cancel() {
    cycle_.cancel();
    finish();
}

void CSettingsDialog::finish() {
    done(cycle_.isApplied() ? 1 : 0);
}

void CSettingsDialog::notifyUpdaters() {
    cycle_.notifyUpdaters();
}

void CSettingsDialog::showActivePageHelp() {
    guarded([this] {
        if (CPropDialogTemplate* page = pages_.active())
            page->showHelp();
    });
}

/// Other programs write while this one is not in front, so a refresh is due when it comes to the front again.
/// Where a question or another dialog is in the way then, the refresh is tried again once the focus is back.
void CSettingsDialog::noteActivation(const QEvent& event) {
    if (event.type() == QEvent::ApplicationStateChange) {
        const auto state = static_cast<const QApplicationStateChangeEvent&>(event).applicationState();
        if (state != Qt::ApplicationActive)
            wasInactive_ = true;
        else if (std::exchange(wasInactive_, false))
            refreshDue_ = true;
        refreshIfDue();
    } else if (event.type() == QEvent::WindowActivate || event.type() == QEvent::FocusIn) {
        refreshSoon();
    }
}

void CSettingsDialog::refreshSoon() {
    if (refreshDue_)
        QMetaObject::invokeMethod(this, &CSettingsDialog::refreshIfDue, Qt::QueuedConnection);
}

void CSettingsDialog::refreshIfDue() {
    const QWidget* modal = QApplication::activeModalWidget();
    if (!refreshDue_ || !initialised_ || busy_ || QApplication::activePopupWidget() ||
        (modal && modal != this))
        return;
    refreshDue_ = false;
    runCommand([this] { refresh(); });
}

/// Also where this refresh has changed nothing, the pages look at the store: the host may have refreshed it
/// before.
void CSettingsDialog::refresh() {
    DroppedEdits dropped = appConfig_.refresh().dropped;
    for (const auto& [index, page] : pages_.all()) {
        if (auto* follower = dynamic_cast<IFollowsConfiguration*>(page.data()))
            std::ranges::move(follower->followConfiguration(), std::back_inserter(dropped));
    }
    for (const auto& [key, field] : dropped) {
        ui_->notice->addNotice(
            tr("Your change of %1 was given up: it is locked now by %2.")
                .arg(toQString(fieldName(key, field)), toQString(appConfig_.lockingDirectory(key, field))));
    }
}

bool CSettingsDialog::eventFilter(QObject* watched, QEvent* event) {
    noteActivation(*event);
    const QObject* keyReceiver = focusWidget() ? focusWidget() : this;
    // Only the delivery to the control itself is shown to the page, not the way up through its parents.
    if (event->type() == QEvent::KeyPress && pages_.active() && watched == keyReceiver) {
        auto* key = static_cast<QKeyEvent*>(event);
        bool handled = false;
        guarded([&] { handled = pages_.active()->PreTranslateMessage(key); });
        if (handled)
            return true;
        if (key->matches(QKeySequence::HelpContents)) {
            showActivePageHelp();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace ovsettings
