#include "suite/help.h"

#include "suite/help/helpbook.h"
#include "suite/help/helpwindow.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QMessageBox>

#include <optional>

namespace {

/// The book that an empty name stands for.
constexpr QLatin1String kReferenceBook("orvane_ref");
constexpr QLatin1String kContents("index");

struct Page {
    QString bookDirectory;
    QString file;
    bool isTopic;
};

std::optional<Page> findPage(const QString& book, const QString& topic) {
    const auto directory = helpbook::findBook(book.isEmpty() ? QString(kReferenceBook) : book);
    // A topic that could name a file elsewhere is no request that a page makes: it gets no page at all.
    if (!directory || !(topic.isEmpty() || helpbook::isPlainName(topic)))
        return std::nullopt;
    if (!topic.isEmpty()) {
        if (const auto file = helpbook::findTopic(*directory, topic))
            return Page{*directory, *file, true};
    }
    if (const auto contents = helpbook::findTopic(*directory, kContents))
        return Page{*directory, *contents, false};
    return std::nullopt;
}

} // namespace

int OlhHelpCall(const char* book, const char* topic, int /*flags*/) {
    QWidget* owner = QApplication::activeWindow();
    if (!owner)
        owner = QApplication::activeModalWidget();
    const auto page = findPage(QString::fromUtf8(book), QString::fromUtf8(topic));
    if (!page) {
        QMessageBox::information(owner, HelpWindow::tr("Help"),
                                 HelpWindow::tr("There is no help for this page."));
        return 0;
    }
    HelpWindow::forOwner(owner).showPage(page->bookDirectory, page->file);
    return page->isTopic ? 1 : 0;
}
