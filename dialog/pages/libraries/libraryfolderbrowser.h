#pragma once

#include "dialog/widgets/plainfiledialog.h"

#include <string>

class QLabel;

namespace ovsettings {

/// The chooser of a library's folder, which says of each folder that is selected what it holds.
class LibraryFolderBrowser : public PlainFileDialog {
    Q_OBJECT

public:
    LibraryFolderBrowser(QWidget* parent, const std::string& directory);

    /// Runs the chooser. @return the folder chosen, or empty.
    std::string run();

private:
    void showContents(const QString& folder);

    QLabel* status_;
};

} // namespace ovsettings
