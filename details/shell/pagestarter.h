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

    /// @return the page with its window, hidden, or null.
    virtual CPropDialogTemplate* create(QWidget* parent);

private:
    CPropertyPageFactory& factory_;
    std::string pageKey_;
};

/// A starter for a factory that takes the configuration objects. The factory has been given them, so they
/// play no part in the making of the page.
class CPageStarterEx : public CPageStarter {
public:
    CPageStarterEx(CPropertyPageFactory& factory, std::string pageKey, Orv::iAppConfiguration* appConfig,
                   Orv::CProjectConfiguration* projectConfig);
    ~CPageStarterEx() override;

    Orv::iAppConfiguration* const appConfig;
    Orv::CProjectConfiguration* const projectConfig;
};

} // namespace ovsettings
