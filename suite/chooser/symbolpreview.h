#pragma once

#include <QtWidgets/QWidget>

#include <string>

class QLabel;
class QTreeWidget;

namespace suite {
class CentralLibrary;
}

namespace cldialog {

/// What a symbol's file tells of it.
class SymbolPreview : public QWidget {
    Q_OBJECT

public:
    explicit SymbolPreview(QWidget* parent);

    void clear();
    /// Reads the symbol's file.
    /// @param symbol "PARTITION:NAME".
    void show(const suite::CentralLibrary& library, const std::string& symbol);

private:
    QLabel* name_;
    QLabel* library_;
    QLabel* description_;
    QLabel* pins_;
    QTreeWidget* properties_;
};

} // namespace cldialog
