#pragma once

#include "ovsettings/export.h"

#include <QtWidgets/QWidget>

#include <string>

class QKeyEvent;

namespace Orv {
class iAppConfiguration;
struct CProjectConfiguration;
} // namespace Orv

namespace ovsettings {

/// Base class of every settings page: a child widget that the settings dialog shows in its page area.
///
/// A page is made when its category is first selected, stays until the dialog goes, and is hidden while
/// another page is on show. It reads its values in OnInitDialog, writes them in onApply and never saves the
/// configuration nor ends the dialog: the dialog does both. (Only the page Objects saves it, after Save
/// Scheme, since the list of schemes must not lag behind the file.) A page that refuses something has already
/// told the user; a true result means that the dialog may go on. What one of the operations below throws ends
/// the dialog and reaches the host; but what is thrown while the page is made (buildTemplate, OnInitDialog,
/// createWindow and the handing over of the configuration) is told as an error, and the category has no
/// page until it is selected again. Handlers of the page's own controls run in the toolkit's event loop and
/// must not throw.
class OVSETTINGS_API CPropDialogTemplate : public QWidget {
    Q_OBJECT

public:
    /// @param templateId number of the page's dialog template, for diagnostics.
    /// @param parent     the widget that owns the page until createWindow gives it another; may be null.
    explicit CPropDialogTemplate(unsigned templateId, QWidget* parent = nullptr);
    ~CPropDialogTemplate() override;

    /// Sees a key press before the control that has the focus. True ends the handling. The default leaves
    /// every key.
    virtual bool PreTranslateMessage(QKeyEvent* event);

    /// Puts the page's controls on it; usually `ui.setupUi(this)` of a form compiled with uic, and so before
    /// any value is read. False leaves the page without a window; the default puts nothing on it and
    /// succeeds.
    virtual bool buildTemplate();

    /// Fills the controls. Runs inside createWindow, after buildTemplate; the result is not used. It runs
    /// again if it threw and the page outlived that.
    virtual bool OnInitDialog();

    /// The name by which changes of the page are reported to an IUpdateHost.
    virtual const char* pageName() const;
    /// The template number given to the constructor.
    virtual unsigned dialogId() const;
    /// Sets the parent, builds the template, fills it. A template that cannot be built is told on standard
    /// error and leaves the page without a window. Returns true in either case. What throws in it leaves the
    /// page without a parent, to whoever made it; another call takes up where this one ended.
    virtual bool createWindow(QWidget* parent);
    /// OK: store the values, as a rule by calling onApply.
    virtual bool onOk();
    /// Apply: store the values. A page may refuse here and must then write nothing.
    virtual bool onApply();
    /// Cancel. Called on every page that was made.
    virtual bool onCancel();
    /// Called each time the page has become visible.
    virtual bool onEnter();
    /// Called before the selection moves to another category; false keeps it on this one.
    virtual bool onLeave();
    /// Called before a commit; a page that answers false has told the user why.
    virtual bool isValid();
    /// True if the host is to be told that this page changed.
    virtual bool isModified() const;
    /// Opens the page's topic in the online help.
    virtual int showHelp();

    /// True once the page can be shown: it is built and filled, or it came with a parent of its own.
    bool hasWindow() const { return window_ == Window::filled || parentWidget() != nullptr; }

protected:
    /// Set by the concrete page's constructor; never null.
    const char* name = "";
    /// Topic and book in the online help; empty where a page has none.
    std::string helpTopic;
    std::string helpBook;

private:
    enum class Window : unsigned char { none, built, filled };

    unsigned templateId_;
    Window window_ = Window::none;
};

/// A page that works on the configuration objects. They are handed over before the page's window is created;
/// a page overrides the operation that it needs and keeps the pointer, which stays valid as long as the page.
class OVSETTINGS_API CPropDialogTemplateEx : public CPropDialogTemplate {
    Q_OBJECT

public:
    explicit CPropDialogTemplateEx(unsigned templateId, QWidget* parent = nullptr);
    ~CPropDialogTemplateEx() override;

    virtual void setAppConfiguration(Orv::iAppConfiguration* appConfig);
    virtual void setProjectConfiguration(Orv::CProjectConfiguration* projectConfig);
};

} // namespace ovsettings
