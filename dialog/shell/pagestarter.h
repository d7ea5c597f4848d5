#pragma once

#include <string>

class QWidget;

namespace Orv {
class iAppConfiguration;
struct CProjectConfiguration;
} // namespace Orv

namespace ovsettings {

class CPropDialogTemplate;
class CPropertyPageFactory;

/// Stands between a category and its page, so that the page is made only when the category is selected.
class CPageStarter {
public:
    CPageStarter(CPropertyPageFactory& factory, std::string pageKey);
    virtual ~CPageStarter();

    /// @return the page with its window, hidden, or null; also null, and a line to the host, if the
    ///         factory throws: what the user has on other pages is not to be lost over it.
    virtual CPropDialogTemplate* create(QWidget* parent);

private:
    CPropertyPageFactory& factory_;
    std::string pageKey_;
};

/// A starter for a factory that takes the configuration objects. The factory was given them before and makes
/// the page with those, not with the ones here.
class CPageStarterEx : public CPageStarter {
public:
    CPageStarterEx(CPropertyPageFactory& factory, std::string pageKey, Orv::iAppConfiguration* appConfig,
                   Orv::CProjectConfiguration* projectConfig);
    ~CPageStarterEx() override;

    Orv::iAppConfiguration* const appConfig;
    Orv::CProjectConfiguration* const projectConfig;
};

/// Tells the host, from inside a handler, that an exception keeps a page away.
void reportMissingPage(const std::string& pageKey);

} // namespace ovsettings
