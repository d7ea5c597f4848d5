#pragma once

#include <QtWidgets/QDialog>

class QTextBrowser;
class QUrl;

/// The window of the online help: one page of a book at a time. It never blocks the window that it belongs
/// to, and goes with it; closed, it keeps its size for the next page. It opens beside that window where the
/// screen has room for it.
class HelpWindow : public QDialog {
    Q_OBJECT

public:
    /// The process's help window, made if there is none, as a child of `owner`.
    static HelpWindow& forOwner(QWidget* owner);

    /// Both paths absolute. @param page a file of the book.
    void showPage(const QString& bookDirectory, const QString& page);

private:
    explicit HelpWindow(QWidget* owner);

    void moveTo(QWidget* owner);
    void placeBeside(const QWidget& owner);
    void followLink(const QUrl& url);
    void showDocumentTitle();

    QTextBrowser* browser_;
    QString bookDirectory_;
};
