#pragma once

#include <optional>
#include <string>
#include <vector>

namespace ovsettings {

class CSettingsUpdater;

enum class CommitKind { ok, apply };

/// What a commit works on: the pages that were made, each under the index of its category, and the
/// configuration that they store in. One page may stand under several indices. A page that is gone by the
/// time it is asked agrees to everything, and has neither edits nor news.
class ICommitSubject {
public:
    /// The indices, ascending.
    virtual std::vector<unsigned> pages() const = 0;
    /// Whether the page of an index is the one on show, which is stored before the others are asked.
    virtual bool isActive(unsigned index) const = 0;

    virtual bool isValid(unsigned index) = 0;
    virtual bool store(unsigned index, CommitKind kind) = 0;
    virtual void cancel(unsigned index) = 0;
    /// Whether the host is to be told that the page was changed, and by which name.
    virtual bool isModified(unsigned index) const = 0;
    virtual std::string pageName(unsigned index) const = 0;
    /// Whether the page has something that is lost where the dialog goes without storing it.
    virtual bool hasEdits(unsigned index) const = 0;

    /// Saves the configuration.
    virtual void save() = 0;
    /// Whether the last save had something to write and could not.
    virtual bool lastSaveFailed() const = 0;

protected:
    ~ICommitSubject() = default;
};

/// How a commit ended.
struct CommitResult {
    bool mayClose = false; ///< OK may close the dialog: all that could be stored is stored and written
    std::optional<unsigned> refused =
        {}; ///< the page that stopped the commit after the active one was stored
    bool isUnwritten =
        false; ///< at the end of an OK something could not be written, so that closing loses it
};

/// The order in which OK, Apply and Cancel ask and store the pages, save, and tell the updaters. What it
/// works on outlives it.
class CommitCycle {
public:
    CommitCycle(ICommitSubject& subject, CSettingsUpdater& updater);

    CommitResult commit(CommitKind kind);
    void cancel();
    /// Tells the updaters at once; for a page that stores something the host must know of before the commit
    /// has ended. What was gathered at the commit's begin is replaced.
    void notifyUpdaters();

    /// True once a commit has found every page valid, which is what the host is told.
    bool isApplied() const { return isApplied_; }
    std::vector<unsigned> pagesWithEdits() const;

private:
    void gatherChangedPages();
    std::optional<unsigned> activePage() const;
    std::optional<unsigned> firstInvalidPage();
    bool storeOthers(CommitKind kind);

    ICommitSubject& subject_;
    CSettingsUpdater& updater_;
    bool isApplied_ = false;
};

} // namespace ovsettings
