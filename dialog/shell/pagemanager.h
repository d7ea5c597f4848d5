#pragma once

#include "dialog/shell/categories.h"
#include "dialog/shell/propertypagesupplier.h"

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace ovsettings {

class CPageStarter;
class CSettingsUpdater;

/// A category that has a page, as the dialog's tree is to show it.
struct Category {
    std::unique_ptr<CPageStarter> starter;
    unsigned parentKey; ///< the place, from 1, of the one around it among all that are built; 0 at the top
    std::string name;   ///< the catalogue's, untranslated, or a design's
    bool isTranslated;  ///< whether the caption is the name's translation or the name itself
};

/// Owns the categories that the catalogue names and the suppliers of their pages, and says which of them the
/// dialog has.
class CPageManager {
public:
    /// The three outlive the manager.
    CPageManager(Orv::iAppConfiguration& appConfig, Orv::CProjectConfiguration& projectConfig,
                 CSettingsUpdater& updater);
    ~CPageManager();
    CPageManager(const CPageManager&) = delete;
    CPageManager& operator=(const CPageManager&) = delete;

    /// Reads the catalogue. True in every case: the reader has told the user what went wrong.
    bool read(const std::string& path);
    /// The categories whose factories know their pages, each behind the one around it, in the catalogue's
    /// order. Registers the factories' updaters.
    std::vector<Category> build();
    /// Takes the pages out of their factories, then frees the nodes and the suppliers, also if one throws.
    void release();

private:
    class Removed;
    struct Offer;

    void buildNode(CCategoryNode& node, unsigned parentKey, std::vector<Category>& built);
    void buildDesigns(CPropertyPageSupplierProjects& supplier, unsigned parentKey,
                      std::vector<Category>& built);
    void releaseNode(CCategoryNode& node, Removed& removed);
    std::optional<Offer> ask(CPropertyPageSupplier& supplier, const std::string& pageKey);
    void configure(CFactoryEx& factory);
    void handBackFactories();
    CPropertyPageSupplier* supplierFor(const std::string& localization);
    std::unique_ptr<CPageStarter> makeStarter(CPropertyPageFactory& factory, const std::string& pageKey,
                                              int factoryKind);

    Orv::iAppConfiguration& appConfig_;
    Orv::CProjectConfiguration& projectConfig_;
    CSettingsUpdater& updater_;
    CategoryNodes roots_;
    std::string catalogueDirectory_;
    std::map<std::string, std::unique_ptr<CPropertyPageSupplier>> suppliers_; ///< by `localization`
    std::set<CFactoryEx*> configured_; ///< those that were given this dialog's configuration objects
};

} // namespace ovsettings
