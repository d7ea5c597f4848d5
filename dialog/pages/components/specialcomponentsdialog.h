#pragma once

#include "dialog/projectfile/foreignfile.h"
#include "dialog/projectfile/namedfile.h"
#include "dialog/shell/formpage.h"
#include "dialog/shell/unsavededits.h"
#include "dialog/widgets/listboxeditor.h"

#include <QtWidgets/QComboBox>

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace Orv {
class ISpecialComponents;
}

namespace ovsettings {

namespace Ui {
class CSpecialComponentsDialog;
}

/// The page "Special Components": the symbols that stand for ports, connectors between sheets, power and
/// ground, category by category.
class CSpecialComponentsDialog : public CFormPage<Ui::CSpecialComponentsDialog>, public IUnsavedEdits {
    Q_OBJECT

public:
    /// A list to choose from. The one for editing in place offers the symbols that the file knows, and takes
    /// any other text too.
    class CComboBoxEx : public QComboBox {
    public:
        using QComboBox::QComboBox;

        void setKnownSymbols(const QStringList& symbols);
    };

    /// Has a new line chosen instead of typed.
    class CListBoxEditorEx : public ListBoxEditor {
    public:
        using ListBoxEditor::ListBoxEditor;

        /// @param browse       gives the text of a new line; an empty one adds none.
        /// @param knownSymbols gives what editing in place offers.
        void setSources(std::function<std::string()> browse, std::function<QStringList()> knownSymbols);

    protected:
        void newLine() override;
        QWidget* createLineEditor(QWidget* parent, int row) override;

    private:
        std::function<std::string()> browse_;
        std::function<QStringList()> knownSymbols_;
    };

    explicit CSpecialComponentsDialog(QWidget* parent);
    ~CSpecialComponentsDialog() override;

    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onApply() override;
    bool onEnter() override;
    bool onLeave() override;
    bool isModified() const override;
    bool hasUnsavedEdits() const override;

    /// Drops what was changed, and shows the first category as the file holds it.
    void reset();
    /// Has the user choose a symbol of a category. @return empty on cancel, and for an index that is none.
    std::string chooseSymbol(int category);

private:
    /// Of these, the first of the file's categories, the page offers lists.
    static constexpr int kOffered = 11;
    using Lists = std::array<std::vector<std::string>, kOffered>;

    bool isBuilt() const;
    /// The lists as they stand on the page.
    Lists editedLists() const;
    Orv::ISpecialComponents* components() const;
    std::string storedPath() const;
    bool hasFile() const;
    Lists listsInFile() const;
    void putIntoFile(const Lists& lists);
    QStringList knownSymbols() const;
    void load();
    void showRows();
    /// The rows on show are the truth for their category; an edit that is open counts.
    void takeRows();
    void selectCategory(int category);
    void followFile();
    void enableControls();

    NamedFile file_;
    ForeignFile foreign_;
    Lists working_;
    Lists loaded_;
    int shown_ = 0; ///< index of the category on show
    /// The file object has the lists, and has saved them for this page.
    bool saved_ = false;
};

} // namespace ovsettings
