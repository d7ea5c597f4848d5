#pragma once

#include "ovsettings/export.h"
#include "ovsettings/interfaceversion.h"

#include <QtCore/QPointer>

#include <functional>
#include <map>
#include <memory>
#include <string>

class QWidget;

namespace Orv {
class iAppConfiguration;
class IUpdater;
struct CProjectConfiguration;
} // namespace Orv

namespace ovsettings {

class CPropDialogTemplate;

/// Turns a page key (the `classid` of a catalogue entry) into a page. An add-in library hands one to the
/// dialog from an exported function
///
///     extern "C" ovsettings::CPropertyPageFactory* getFactory();
///
/// which is called once for each catalogue entry that names the library, and again when the dialog goes. It
/// must return the same object each time (or be prepared for several), and keeps ownership. The library's
/// code stays in the process to its end. Keys are compared exactly. The order of the operations is part of
/// the binary contract.
class OVSETTINGS_API CPropertyPageFactory {
public:
    virtual ~CPropertyPageFactory() = default;

    /// @param pageKey the catalogue's `classid`.
    /// @param parent  the widget that the page's window becomes a child of.
    /// @return a page whose window exists and is hidden, or null if the key is unknown. From here on the
    ///         dialog owns the widget; it deletes it before it lets go of the add-in.
    virtual CPropDialogTemplate* createPage(const std::string& pageKey, QWidget* parent) = 0;

    /// Called with the catalogue entry's `name` when the dialog goes; must accept a key it does not know.
    /// What the dialog takes out of a CFactory in this way is back for the next dialog.
    virtual void removePage(const std::string& pageKey) = 0;

    /// False drops the category, and its sub-categories, in silence.
    virtual bool hasPage(const std::string& pageKey) = 0;

    /// An updater to be told of commits, or null. Asked once for each catalogue entry; not owned by the
    /// library.
    virtual Orv::IUpdater* getUpdater();

    /// 2 means that the factory is a CFactoryEx and takes the configuration objects; any other value means
    /// that it finds its settings by itself.
    virtual int factoryKind();
};

/// A factory over a table from page key to starter. It owns the starters, not the pages; a page of a
/// CDialogLazyStarter that cannot be made to its end, since it throws, is deleted.
class OVSETTINGS_API CFactory : public CPropertyPageFactory {
public:
    /// Joins one key to one page: constructs it, without a window, when first asked.
    struct OVSETTINGS_API CBaseDialogStarter {
        /// @return the page, whose window has not been created yet, or null.
        virtual CPropDialogTemplate* create(QWidget* parent) = 0;
        virtual ~CBaseDialogStarter() = default;
    };

    /// Serves a page that exists before it is asked for. It does not own the page.
    struct OVSETTINGS_API CDialogStarter : CBaseDialogStarter {
        CPropDialogTemplate* create(QWidget* parent) override;
        QPointer<CPropDialogTemplate> page; ///< null before it is set and after the page was deleted
    };

    /// Makes a new `T`, with a null parent, each time it is asked. It keeps nothing.
    template <typename T>
    struct CDialogLazyStarter : CDialogStarter {
        CPropDialogTemplate* create(QWidget*) override { return new T(nullptr); }
    };

    /// By page key. Several tables may share a starter, which lives as long as the last of them.
    using Starters = std::map<std::string, std::shared_ptr<CBaseDialogStarter>>;

    CFactory();
    ~CFactory() override;
    CFactory(const CFactory&) = delete;
    CFactory& operator=(const CFactory&) = delete;

    CPropDialogTemplate* createPage(const std::string& pageKey, QWidget* parent) override;
    void removePage(const std::string& pageKey) override;
    bool hasPage(const std::string& pageKey) override;
    int factoryKind() override;

    /// Enters a starter under a key; an earlier one under the same key is replaced.
    void addStarter(const std::string& pageKey, std::unique_ptr<CBaseDialogStarter> starter);

    /// The table as it stands.
    const Starters& starters() const { return starters_; }

    /// Enters those starters whose keys are not in the table. So what was copied from the table before a
    /// removePage comes back.
    void addStarters(const Starters& starters);

    /// Enters a lazy starter for the page class `T`, whose constructor takes a parent widget.
    template <typename T>
    void addPage(const std::string& pageKey) {
        addStarter(pageKey, std::make_unique<CDialogLazyStarter<T>>());
    }

protected:
    /// Constructs the page of a key, lets `prepare` see it, then creates its window under `parent`.
    CPropDialogTemplate* makePage(const std::string& pageKey, QWidget* parent,
                                  const std::function<void(CPropDialogTemplate&)>& prepare);

private:
    Starters starters_;
};

/// A factory that hands the configuration objects to each page before the page's window exists. Derive an
/// add-in's factory from it and call addPage in its constructor.
class OVSETTINGS_API CFactoryEx : public CFactory {
public:
    CPropDialogTemplate* createPage(const std::string& pageKey, QWidget* parent) override;
    int factoryKind() override;

    /// Stores the two objects for all pages made afterwards. Neither is owned. Each dialog calls it as it
    /// builds its tree; one that was opened while another is up calls it again as it goes, with the objects
    /// of the other.
    virtual void setConfigurations(Orv::iAppConfiguration* appConfig,
                                   Orv::CProjectConfiguration* projectConfig);

    /// As createPage, with these objects in place of the stored ones. Only a CPropDialogTemplateEx is given
    /// them.
    virtual CPropDialogTemplate* createPage(const std::string& pageKey, QWidget* parent,
                                            Orv::iAppConfiguration* appConfig,
                                            Orv::CProjectConfiguration* projectConfig);

private:
    Orv::iAppConfiguration* appConfig_ = nullptr;
    Orv::CProjectConfiguration* projectConfig_ = nullptr;
};

} // namespace ovsettings
