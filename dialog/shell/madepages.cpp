#include "dialog/shell/madepages.h"

#include "dialog/shell/unsavededits.h"
#include "orv/appconfiguration.h"

#include <utility>

namespace ovsettings {

void MadePages::deleteAll() {
    // One page may stand under two indices.
    for (const auto& [index, page] : std::exchange(pages_, {}))
        delete page;
}

CPropDialogTemplate* MadePages::at(unsigned index) const {
    const auto page = pages_.find(index);
    return page == pages_.end() ? nullptr : page->second.data();
}

std::vector<unsigned> MadePages::pages() const {
    std::vector<unsigned> indices;
    for (const auto& [index, page] : pages_) {
        if (page)
            indices.push_back(index);
    }
    return indices;
}

bool MadePages::isActive(unsigned index) const {
    const CPropDialogTemplate* page = at(index);
    return page && page == active_;
}

bool MadePages::isValid(unsigned index) {
    CPropDialogTemplate* page = at(index);
    return !page || page->isValid();
}

bool MadePages::store(unsigned index, CommitKind kind) {
    CPropDialogTemplate* page = at(index);
    return !page || (kind == CommitKind::ok ? page->onOk() : page->onApply());
}

void MadePages::cancel(unsigned index) {
    if (CPropDialogTemplate* page = at(index))
        page->onCancel();
}

bool MadePages::isModified(unsigned index) const {
    const CPropDialogTemplate* page = at(index);
    return page && page->isModified();
}

std::string MadePages::pageName(unsigned index) const {
    const CPropDialogTemplate* page = at(index);
    return page ? page->pageName() : "";
}

bool MadePages::hasEdits(unsigned index) const {
    const CPropDialogTemplate* page = at(index);
    if (const auto* edits = dynamic_cast<const IUnsavedEdits*>(page))
        return edits->hasUnsavedEdits();
    return page && page->isModified();
}

void MadePages::save() {
    appConfig_.save();
}

bool MadePages::lastSaveFailed() const {
    return appConfig_.lastSaveFailed();
}

} // namespace ovsettings
