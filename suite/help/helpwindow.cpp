#include "suite/help/helpwindow.h"

#include "platform/plaintext.h"
#include "suite/help/helpbook.h"

#include <QtCore/QPointer>
#include <QtCore/QUrl>
#include <QtGui/QScreen>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTextBrowser>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace {

// Of a page: its usual size, and the width that it can still be read at.
constexpr int kUsualCharacters = 80;
constexpr int kUsualLines = 28;
constexpr int kLeastCharacters = 40;

} // namespace

HelpWindow& HelpWindow::forOwner(QWidget* owner) {
    static QPointer<HelpWindow> window;
    if (!window)
        window = new HelpWindow(owner);
    window->moveTo(owner);
    return *window;
}

HelpWindow::HelpWindow(QWidget* owner) : QDialog(owner), browser_(new QTextBrowser(this)) {
    setAttribute(Qt::WA_QuitOnClose, false);
    setSizeGripEnabled(true);

    browser_->setAccessibleName(tr("Help page"));
    browser_->setOpenLinks(false);
    connect(browser_, &QTextBrowser::anchorClicked, this, &HelpWindow::followLink);
    connect(browser_, &QTextBrowser::sourceChanged, this, &HelpWindow::showDocumentTitle);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    auto* back = buttons->addButton(tr("&Back"), QDialogButtonBox::ActionRole);
    back->setEnabled(false);
    connect(browser_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(back, &QAbstractButton::clicked, browser_, &QTextBrowser::backward);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    // Enter follows a link that has the focus; it must not press a button as well.
    for (QAbstractButton* button : buttons->buttons())
        static_cast<QPushButton*>(button)->setAutoDefault(false);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(browser_);
    layout->addWidget(buttons);
    browser_->setFocus();

    const QSize comfortable(fontMetrics().averageCharWidth() * kUsualCharacters,
                            fontMetrics().lineSpacing() * kUsualLines);
    resize(comfortable.boundedTo(screen()->availableSize() * 0.9));
}

void HelpWindow::moveTo(QWidget* owner) {
    for (const QWidget* above = owner; above; above = above->parentWidget()) {
        if (above == this)
            return;
    }
    // A window under another owner would be blocked by a modal dialog that was opened since.
    if (owner != parentWidget())
        setParent(owner, windowFlags());
}

/// On the side that has more room, and narrower than it is if it must be. Where a page could not be read
/// beside the owner, the place is left to the platform.
void HelpWindow::placeBeside(const QWidget& owner) {
    const QRect available = owner.screen()->availableGeometry();
    const QRect beside = owner.frameGeometry();
    const QSize edges = beside.size() - owner.size(); // those of this window are not known before it is shown
    const int left = beside.left() - available.left(), right = available.right() - beside.right();
    const int room = std::max(left, right) - edges.width();
    if (room < fontMetrics().averageCharWidth() * kLeastCharacters)
        return;
    resize(std::min(width(), room), height());
    const int lowest = available.bottom() + 1 - height() - edges.height();
    move(left > right ? beside.left() - width() - edges.width() : beside.right() + 1,
         std::max(std::min(beside.top(), lowest), available.top()));
}

void HelpWindow::showPage(const QString& bookDirectory, const QString& page) {
    // "Back" leads neither into another book, whose links could not be followed, nor to what was closed.
    const bool startsAnew = bookDirectory != bookDirectory_ || !isVisible();
    bookDirectory_ = bookDirectory;
    browser_->setSource(QUrl::fromLocalFile(page), QTextDocument::HtmlResource);
    if (startsAnew)
        browser_->clearHistory();
    if (!isVisible() && parentWidget())
        placeBeside(*parentWidget()->window());
    show();
    raise();
    activateWindow();
}

void HelpWindow::followLink(const QUrl& url) {
    if (!url.isLocalFile())
        return;
    const auto page = helpbook::findLinked(bookDirectory_, url.toLocalFile());
    if (!page)
        return;
    QUrl target = QUrl::fromLocalFile(*page);
    target.setFragment(url.fragment());
    browser_->setSource(target, QTextDocument::HtmlResource);
}

void HelpWindow::showDocumentTitle() {
    const QString title = browser_->documentTitle().simplified();
    setWindowTitle(title.isEmpty() ? tr("Help") : platform::inItsOrder(title));
}
