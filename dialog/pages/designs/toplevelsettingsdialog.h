#pragma once

#include "dialog/pages/designs/navigator.h"
#include "dialog/shell/formpage.h"

#include <QtCore/QStringList>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace ovsettings {

namespace Ui {
class CTopLevelSettingsDialog;
}

/// The page of one design: its top-level block, annotation, conflicts, and what it sees of the central
/// library.
class CTopLevelSettingsDialog : public CFormPage<Ui::CTopLevelSettingsDialog> {
    Q_OBJECT

public:
    CTopLevelSettingsDialog(QWidget* parent, const std::string& designName);
    ~CTopLevelSettingsDialog() override;

    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onApply() override;
    bool onCancel() override;
    /// True once the controls stand for another choice than at the filling or the last store.
    bool isModified() const override;

private:
    /// What a scheme shows of the library, or what the design has of its own. Names of partitions.
    struct Lists {
        std::vector<std::string> symbols;
        std::vector<std::string> pdb;
        std::vector<std::string> third;

        bool operator==(const Lists&) const = default;
    };

    /// What a store writes.
    struct Choices {
        int block = -1;
        int scheme = -1;
        Lists lists; ///< empty where the scheme has its own
        bool backAnnotation = false;
        bool forwardAnnotation = false;
        bool frontEndWins = false;
        bool backEndWins = false;

        bool operator==(const Choices&) const = default;
    };

    std::string libraryPath() const;
    void connectControls();
    Lists projectLists() const;
    Lists listsOf(const std::string& storedScheme) const;
    Lists localLists() const;
    void fillSchemes();
    void showLists(const Lists& lists);
    void selectScheme(const std::string& stored);
    void onSchemeSelected(int chosen);
    void setScheme(int index);
    void onListChanged();
    void setListState(bool editable);
    bool isEditable(const std::string& shown) const;
    bool storesLists() const;
    Lists shownLists() const;
    Choices choices() const;
    // Each @return whether the project has it now; its file may not be writable.
    bool storeLists();
    bool storeScheme();
    bool storeFlags();

    std::string blockName_;
    Navigator navigator_;

    std::map<std::string, int> schemeTypes_;         ///< by stored name; 0: the lists cannot be edited
    std::map<std::string, std::string> schemeNames_; ///< from the name as shown to the stored one
    bool noLocalScheme_ = true;                      ///< the library has no scheme of the local name
    bool firstLoad_ = true;
    std::string shownScheme_; ///< the one selected last, as shown
    Lists local_;             ///< what the user had under the local scheme last
    std::vector<std::string> third_;
    Choices stored_;
};

} // namespace ovsettings
