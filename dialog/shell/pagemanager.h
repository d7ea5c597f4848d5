#pragma once

#include "dialog/shell/categories.h"
#include "dialog/shell/propertypagesupplier.h"

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>

namespace ovsettings {

class CPageStarter;
class CSettingsDialog;
class CSettingsUpdater;
class CSettingsXmlReader;

/// Owns the categories that the catalogue names and the suppliers of their pages, and builds the dialog's
/// tree.
class CPageManager : public CCategories {
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

private:
    class Removed;
    struct Offer;

    void buildNode(CCategoryNode& node, unsigned parentKey);
    void buildDesigns(CPropertyPageSupplierProjects& supplier, unsigned parentKey);
    void releaseNode(CCategoryNode& node, Removed& removed);
    std::optional<Offer> ask(CPropertyPageSupplier& supplier, const std::string& pageKey);
    void configure(CFactoryEx& factory);
    void handBackFactories();
    CPropertyPageSupplier* supplierFor(const std::string& localization);
    std::unique_ptr<CPageStarter> makeStarter(CPropertyPageFactory& factory, const std::string& pageKey,
                                              int factoryKind);

    CSettingsDialog& frame_;
    CSettingsUpdater& updater_;
    std::unique_ptr<CSettingsXmlReader> reader_;
    std::string catalogueDirectory_;
    std::map<std::string, std::unique_ptr<CPropertyPageSupplier>> suppliers_; ///< by `localization`
    std::set<CFactoryEx*> configured_; ///< those that were given this dialog's configuration objects
};

} // namespace ovsettings
