#pragma once

#include "suite/chooser/symboltable.h"
#include "suite/libraries/centrallibrary.h"

#include <QtCore/QTimer>
#include <QtWidgets/QDialog>

#include <optional>
#include <string>
#include <vector>

class QComboBox;
class QKeyEvent;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QTableView;

namespace cldialog {

class SymbolListModel;
class SymbolPreview;

/// The chooser of a symbol: those that were suggested, and by category those of a central library. A
/// partition's directory is looked at once, when a category that shows it is chosen for the first time.
class SymbolChooser : public QDialog {
    Q_OBJECT

public:
    struct Content {
        QString title;
        suite::CentralLibrary library;
        QString problem;                    ///< why the library is not there; empty if it is
        std::vector<std::string> suggested; ///< "PARTITION:NAME"
    };

    SymbolChooser(Content content, QWidget* owner);

    /// The name of the selected symbol; empty if none is.
    std::string selectedSymbol() const;

    void done(int result) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Listing {
        std::optional<SymbolRange> symbols; ///< nothing before the directory was looked at
        bool isReadable = true;
    };

    void createControls();
    QLayout* createFilters();
    void createProblemLine();
    QWidget* createList();
    void fillCategories(const QString& title);
    void showCategory();
    void listPartitions();
    void list(std::size_t partition);
    void showSymbols();
    void filter();
    void select(std::optional<int> row);
    void updateSelection();
    void updateMessages();

    std::optional<int> selectedRow() const;
    /// The partitions of the category shown, in order.
    std::vector<std::size_t> shownPartitions() const;
    bool showsSuggested() const;
    QString problemText() const;
    QString countText() const;

    const suite::CentralLibrary library_;
    const QString libraryProblem_;
    SymbolTable table_;
    const SymbolRange suggested_;
    std::vector<Listing> listings_; ///< by number of the symbol partition
    SymbolListModel* model_;
    QTimer listTimer_;
    QTimer previewTimer_;

    QLineEdit* filter_;
    QComboBox* category_;
    QWidget* problemLine_;
    QLabel* problem_;
    QTableView* list_;
    QLabel* count_;
    SymbolPreview* preview_;
    QPushButton* ok_;
};

} // namespace cldialog
