#pragma once

#include "dialog/shell/commitcycle.h"
#include "ovsettings/propdialogtemplate.h"

#include <QtCore/QPointer>

#include <map>

namespace ovsettings {

/// The pages that were made since the dialog opened, and the configuration that they store in. They belong to
/// the dialog, and may delete themselves all the same.
class MadePages final : public ICommitSubject {
public:
    using Pages = std::map<unsigned, QPointer<CPropDialogTemplate>>;

    explicit MadePages(Orv::iAppConfiguration& appConfig) : appConfig_(appConfig) {}

    /// By the index of the category; null for a page that is gone.
    const Pages& all() const { return pages_; }
    void add(unsigned index, CPropDialogTemplate& page) { pages_[index] = &page; }
    void deleteAll();

    /// The page that OK, Apply, help and keys go to first; null for none.
    CPropDialogTemplate* active() const { return active_; }
    void setActive(CPropDialogTemplate* page) { active_ = page; }

    std::vector<unsigned> pages() const override;
    bool isActive(unsigned index) const override;
    bool isValid(unsigned index) override;
    bool store(unsigned index, CommitKind kind) override;
    void cancel(unsigned index) override;
    bool isModified(unsigned index) const override;
    std::string pageName(unsigned index) const override;
    bool hasEdits(unsigned index) const override;
    void save() override;
    bool lastSaveFailed() const override;

private:
    CPropDialogTemplate* at(unsigned index) const;

    Orv::iAppConfiguration& appConfig_;
    Pages pages_;
    QPointer<CPropDialogTemplate> active_;
};

} // namespace ovsettings
