#pragma once

#include "dialog/pages/libraries/librarylist.h"
#include "dialog/shell/formpage.h"
#include "dialog/widgets/watchedlistboxeditor.h"

#include <QtCore/QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace ovsettings {

namespace Ui {
class CLibrariesDialog;
}

/// The page "Symbol Libraries": the project's libraries, in the order in which they are searched. It works on
/// a copy, which its store gives to the project.
class CLibrariesDialog : public CFormPage<Ui::CLibrariesDialog> {
    Q_OBJECT

public:
    /// The list of libraries. Only its first row may be of the type Primary; the user may break that, and the
    /// store mends it.
    class CListBoxEditorEx : public WatchedListBoxEditor {
    public:
        explicit CListBoxEditorEx(QWidget* parent = nullptr);

        /// @param ask lets the user enter a row. @return false if he gave it up.
        void setAsk(std::function<bool(LibraryRow& row)> ask) { ask_ = std::move(ask); }
        std::vector<LibraryRow> rows() const;
        /// Replaces all rows; nothing is changed by the user then.
        void setRows(const std::vector<LibraryRow>& rows);
        /// Appends rows. Those whose alias is taken get another one.
        /// @param progress told how many of how many are made; by returning false it has none appended.
        void importRows(std::vector<LibraryRow> rows,
                        const std::function<bool(std::size_t, std::size_t)>& progress);
        /// Shows the rows with the types that they are stored with, since the next store begins from what is
        /// shown.
        void mendTypes();

    protected:
        void newLine() override;
        void editLine(int row) override;
        bool mayMove(int from, int to) override;

    private:
        class Item;
        class Delegate;

        Item& item(int row) const;
        TakenAliases aliases() const;
        bool tellIfTaken(const std::string& alias);
        void insertRow(int row, LibraryRow library);
        void editSelected();

        std::function<bool(LibraryRow&)> ask_;
        QTimer editing_;
    };

    explicit CLibrariesDialog(QWidget* parent);
    ~CLibrariesDialog() override;

    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onOk() override;
    bool onApply() override;
    bool onLeave() override;
    bool isModified() const override;

private:
    enum class StartedBy { frame, page };

    bool hasLibraries() const;
    std::string directory() const;
    bool ask(LibraryRow& row);
    void importList();
    /// While it runs the user may give it up. @return false if the file holds no list.
    bool importFrom(const std::string& path);
    void load();
    bool store(StartedBy starter);
};

} // namespace ovsettings
