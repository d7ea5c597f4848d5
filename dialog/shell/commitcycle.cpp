#include "dialog/shell/commitcycle.h"

#include "dialog/shell/settingsupdater.h"

namespace ovsettings {

CommitCycle::CommitCycle(ICommitSubject& subject, CSettingsUpdater& updater)
    : subject_(subject), updater_(updater) {
}

CommitResult CommitCycle::commit(CommitKind kind) {
    gatherChangedPages(); // before anything is stored, while the pages still know
    const std::optional<unsigned> active = activePage();
    if (!active || !subject_.isValid(*active))
        return {};
    const bool isActiveStored = subject_.store(*active, kind);
    // OK goes on. It is meant, for the user: OK says "and close", so the other pages get their turn.
    if (kind == CommitKind::apply && !isActiveStored)
        return {};
    subject_.save();
    // The active page is stored by now, and stays so if another one refuses.
    if (const std::optional<unsigned> refused = firstInvalidPage())
        return {.refused = refused};
    isApplied_ = true;
    const bool areOthersStored = storeOthers(kind);
    subject_.save();
    updater_.notify();
    if (kind == CommitKind::apply)
        return {};
    if (subject_.lastSaveFailed())
        return {.isUnwritten = true};
    // A page that could not store has told the user; it may have nothing to lose all the same.
    const bool losesEdits = !isActiveStored && subject_.hasEdits(*active);
    return {.mayClose = areOthersStored && !losesEdits};
}

void CommitCycle::cancel() {
    for (const unsigned index : subject_.pages())
        subject_.cancel(index);
}

void CommitCycle::notifyUpdaters() {
    gatherChangedPages();
    updater_.notify();
}

std::vector<unsigned> CommitCycle::pagesWithEdits() const {
    std::vector<unsigned> edited = subject_.pages();
    std::erase_if(edited, [this](unsigned index) { return !subject_.hasEdits(index); });
    return edited;
}

void CommitCycle::gatherChangedPages() {
    updater_.clear();
    for (const unsigned index : subject_.pages()) {
        if (subject_.isModified(index))
            updater_.addPage(subject_.pageName(index));
    }
}

std::optional<unsigned> CommitCycle::activePage() const {
    for (const unsigned index : subject_.pages()) {
        if (subject_.isActive(index))
            return index;
    }
    return std::nullopt;
}

std::optional<unsigned> CommitCycle::firstInvalidPage() {
    for (const unsigned index : subject_.pages()) {
        if (!subject_.isValid(index))
            return index;
    }
    return std::nullopt;
}

bool CommitCycle::storeOthers(CommitKind kind) {
    bool areAllStored = true;
    for (const unsigned index : subject_.pages()) {
        if (!subject_.isActive(index) && !subject_.store(index, kind))
            areAllStored = false;
    }
    return areAllStored;
}

} // namespace ovsettings
