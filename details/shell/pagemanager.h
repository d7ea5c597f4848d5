#pragma once

#include "details/shell/propertypagesupplier.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace ovsettings {

class CPageStarter;
class CSettingsDialog;
class CSettingsUpdater;
class CSettingsXmlReader;

/// One category of the catalogue.
struct CCategoryNode {
    std::string classid;
    std::string localization;
    std::string name;
    CPropertyPageSupplier* supplier = nullptr; ///< set when the tree is built; not owned
    CCategoryNode* parent = nullptr;           ///< null for a top-level category
    std::vector<std::unique_ptr<CCategoryNode>> children;
};

/// Owns the categories that the catalogue names and the suppliers of their pages, and builds the dialog's
/// tree.
class CPageManager {
public:
    CPageManager(CSettingsDialog& frame, CSettingsUpdater& updater);
    ~CPageManager();
    CPageManager(const CPageManager&) = delete;
    CPageManager& operator=(const CPageManager&) = delete;

    /// Reads the catalogue. True in every case: the reader has told the user what went wrong.
    bool read(const std::string& path);
    /// Adds a category to the frame for each node whose factory knows its page.
    void build();
    /// Takes the pages out of their factories, then frees the nodes and the suppliers, also if one throws.
    void release();

    /// A new category under `parent`, or a top-level one. Owned here.
    CCategoryNode* newNode(CCategoryNode* parent);
    /// The reader's chain of open categories; pop and top of an empty chain do nothing and give null.
    void push(CCategoryNode* node);
    CCategoryNode* pop();
    CCategoryNode* top() const;

private:
    void buildNode(CCategoryNode& node, unsigned parentKey);
    void buildDesigns(CPropertyPageSupplierProjects& supplier, unsigned parentKey);
    void releaseNode(CCategoryNode& node);
    CPropertyPageSupplier* supplierFor(const std::string& localization);
    std::unique_ptr<CPageStarter> makeStarter(CPropertyPageFactory& factory, const std::string& pageKey,
                                              int factoryKind);

    CSettingsDialog& frame_;
    CSettingsUpdater& updater_;
    std::unique_ptr<CSettingsXmlReader> reader_;
    std::map<std::string, std::unique_ptr<CPropertyPageSupplier>> suppliers_; ///< by `localization`
    std::vector<CCategoryNode*> stack_;
    std::vector<std::unique_ptr<CCategoryNode>> roots_;
};

} // namespace ovsettings
