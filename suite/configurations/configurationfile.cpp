#include "suite/configurations/configurationfile.h"

#include "platform/editfile.h"
#include "platform/xmlencoding.h"
#include "platform/xmlscanner.h"
#include "suite/files/errorlog.h"

#include <algorithm>
#include <atomic>
#include <cerrno>

namespace suite {

using platform::Error;
using platform::Result;

namespace {

constexpr const char* kDamaged = "damaged";
// Well inside the largest file.
constexpr std::size_t kLongestText = 4u << 20;

void mergeName(std::vector<std::string>& names, const std::string& name, bool present) {
    const auto known = std::find(names.begin(), names.end(), name);
    if (present && known == names.end())
        names.push_back(name);
    else if (!present && known != names.end())
        names.erase(known);
}

template <typename Value>
const Value* pointerTo(const std::optional<Value>& value) {
    return value ? &*value : nullptr;
}

template <typename Value>
std::optional<Value> copyOf(const Value* value) {
    return value ? std::optional(*value) : std::nullopt;
}

/// Applies an edit to a group that is to be written, or removed, as a whole.
template <typename Edit>
void editAttribute(std::optional<ConfigurationDocument::Attributes>& group, const std::string& name,
                   const Edit& edit) {
    if (edit.text)
        (group ? *group : group.emplace())[name] = *edit.text;
    else if (group && group->contains(name) && (!edit.ifSays || group->at(name) == *edit.ifSays))
        group->erase(name);
}

/// Like none before.
std::uint64_t nextRevision() {
    static std::atomic<std::uint64_t> revisions = 0;
    return ++revisions;
}

} // namespace

void ConfigurationFile::read(std::optional<Contents> known) {
    stamp_ = platform::FileStamp::of(path_);
    Reading now{FileState::unchanged};
    if (!known || !known->stamp.isSettled() || stamp_ != known->stamp)
        now = reading(platform::readFile(path_, platform::kLargestDocument, stamp_),
                      known ? &known->document : nullptr);
    state_ = now.state;
    complaint_ = std::move(now.complaint);
    if (state_ == FileState::unchanged) {
        state_ = FileState::read;
        now.document = std::move(known->document);
        revision_ = known->revision;
    } else if (state_ == FileState::read) {
        revision_ = nextRevision();
    }
    if (now.document)
        document_ = std::move(*now.document);
    document_.setReporter([this](Error problem) {
        problem.path = path_;
        errorLog().reportOnce(problem);
    });
}

bool ConfigurationFile::isWhole() const {
    if (complaint_)
        errorLog().reportOnce(*complaint_);
    return !complaint_;
}

ConfigurationFile::Reading ConfigurationFile::reading(Result<std::string> found,
                                                      const ConfigurationDocument* known) const {
    if (found.code() == ENOENT)
        return {FileState::missing};
    // One that is too large may be whole all the same.
    if (!found)
        return {found.code() == EISDIR ? FileState::damaged : FileState::unreadable, {}, found.error()};
    if (known && *found == known->bytes())
        return {FileState::unchanged};
    auto document = ConfigurationDocument::parse(std::move(*found));
    if (document)
        return {FileState::read, std::move(*document)};
    Error problem = document.error();
    problem.path = path_;
    return {
        problem.code == platform::kForeignEncoding ? FileState::unreadable : FileState::damaged, {}, problem};
}

Result<bool> ConfigurationFile::save(platform::LockPatience& patience) {
    auto written = hasEdits() ? writeEdits(patience) : false;
    if (!written)
        errorLog().report(written.error());
    return written && refused_ ? *refused_ : std::move(written);
}

Result<bool> ConfigurationFile::writeEdits(platform::LockPatience& patience) {
    std::optional<ConfigurationDocument> current;
    const auto edit = [&](const Result<std::string>& found) -> Result<platform::Edited> {
        Reading now = reading(found, state_ == FileState::read ? &document_ : nullptr);
        // What cannot be read may be whole, and is not replaced by what was known of it.
        if (now.state == FileState::unreadable)
            return *now.complaint;
        if (now.state == FileState::damaged)
            errorLog().reportOnce(*now.complaint);
        if (now.state == FileState::missing)
            now.document.emplace();
        current = std::move(now.document);
        // A file that was damaged meanwhile has nothing better to offer than what was read before.
        ConfigurationDocument& document = current ? *current : document_;
        applyEdits(document);
        if (document.saysNothing())
            return platform::Edited{};
        if (const auto laid = document.serialise(); !laid)
            return Error{path_, "cannot write: the changes make no XML: " + laid.error().cause,
                         laid.error().line};
        const FileState state = now.state == FileState::unchanged ? state_ : now.state;
        return platform::Edited{document.bytes(), state == FileState::damaged ? kDamaged : ""};
    };
    auto edited =
        platform::editFile(path_, patience, {.limit = platform::kLargestDocument, .looksFirst = false}, edit);
    if (!edited)
        return edited.error();
    if (!edited->former.empty())
        errorLog().report(Error{path_, "the damaged file is kept as " + edited->former});
    state_ = FileState::read;
    stamp_ = {};
    if (current) {
        // What others wrote meanwhile is in it, too.
        document_ = std::move(*current);
        revision_ = nextRevision();
    }
    return edited->isWritten;
}

std::optional<ConfigurationFile::Contents> ConfigurationFile::takeContents() {
    if (state_ != FileState::read || document_.isFlawed())
        return std::nullopt;
    document_.setReporter({});
    return Contents{std::move(path_), std::move(document_), revision_, stamp_};
}

void ConfigurationFile::applyEdits(ConfigurationDocument& document) const {
    for (const auto& [name, edit] : keyEdits_) {
        const auto& [path, key] = name;
        if (edit.state && edit.state->isList)
            document.writeList(path, key, edit.state->values);
        else if (edit.state)
            document.writeValue(path, key, edit.state->values.front());
        else if (!edit.spareLocked || document.canWithdrawKey(path, key, pointerTo(edit.ifSays)))
            document.removeKey(path, key);
    }
    for (const auto& [name, attributes] : groupEdits_) {
        const auto& [path, typeWord, key] = name;
        if (attributes)
            document.writeGroup(path, typeWord, key, *attributes);
        else
            document.removeGroup(path, typeWord, key);
    }
    for (const auto& [group, edits] : attributeEdits_) {
        const auto& [path, typeWord, key] = group;
        for (const auto& [name, edit] : edits) {
            if (edit.text)
                document.writeAttribute(path, typeWord, key, name, *edit.text);
            else if (document.canWithdrawAttribute(path, typeWord, key, name, pointerTo(edit.ifSays)))
                document.removeAttribute(path, typeWord, key, name);
        }
    }
}

void ConfigurationFile::writeGroup(const std::string& path, const std::string& typeWord,
                                   const std::string& key,
                                   const std::map<std::string, std::string>& attributes) {
    const auto isStorable = [this](const auto& attribute) {
        return canBeNamed({attribute.first}) && canBeText(attribute.second);
    };
    if (canBeNamed({path, typeWord, key}) && std::all_of(attributes.begin(), attributes.end(), isStorable))
        noteGroup(path, typeWord, key, attributes);
}

void ConfigurationFile::writeList(const std::string& path, const std::string& key,
                                  const std::vector<std::string>& values) {
    const auto isStorable = [this](const std::string& value) {
        return canBeText(value);
    };
    if (canBeNamed({path, key}) && std::all_of(values.begin(), values.end(), isStorable))
        noteKey(path, key, {KeyState{values, true}}, saysOfKey(path, key, KeyState{values, true}));
}

void ConfigurationFile::writeValue(const std::string& path, const std::string& key,
                                   const std::string& value) {
    if (canBeNamed({path, key}) && canBeText(value))
        noteKey(path, key, {KeyState{{value}, false}}, saysOfKey(path, key, KeyState{{value}, false}));
}

void ConfigurationFile::removeGroup(const std::string& path, const std::string& typeWord,
                                    const std::string& key) {
    noteGroup(path, typeWord, key, std::nullopt);
}

void ConfigurationFile::removeKey(const std::string& path, const std::string& key) {
    noteKey(path, key, {}, saysOfKey(path, key, std::nullopt));
}

void ConfigurationFile::withdrawKey(const std::string& path, const std::string& key,
                                    const std::vector<std::string>* ifSays) {
    noteKey(path, key, {std::nullopt, true, copyOf(ifSays)}, !document_.canWithdrawKey(path, key, ifSays));
}

void ConfigurationFile::writeAttribute(const std::string& path, const std::string& typeWord,
                                       const std::string& key, const std::string& name,
                                       const std::string& text) {
    if (!canBeNamed({path, typeWord, key, name}) || !canBeText(text))
        return;
    ConfigurationDocument::Attributes present;
    std::map<std::string, int> locks;
    bool locked = false;
    document_.readGroup(path, typeWord, key, present, locks, locked);
    const auto known = present.find(name);
    noteAttribute({std::string(sectionPath(path)), typeWord, key}, name, {text, std::nullopt},
                  known != present.end() && known->second == text);
}

void ConfigurationFile::withdrawAttribute(const std::string& path, const std::string& typeWord,
                                          const std::string& key, const std::string& name,
                                          const std::string* ifSays) {
    noteAttribute({std::string(sectionPath(path)), typeWord, key}, name, {std::nullopt, copyOf(ifSays)},
                  !document_.canWithdrawAttribute(path, typeWord, key, name, ifSays));
}

Orv::LockNote ConfigurationFile::keyLockNote(const std::string& path, const std::string& key,
                                             std::size_t item) const {
    return document_.keyLockNote(path, key, item);
}

Orv::LockNote ConfigurationFile::groupLockNote(const std::string& path, const std::string& typeWord,
                                               const std::string& key, const std::string& name) const {
    return document_.attributeLockNote(path, typeWord, key, name);
}

bool ConfigurationFile::readAll(const EntryReader& reader) const {
    if (hasEdits())
        return false;
    document_.readAll(reader);
    return true;
}

void ConfigurationFile::listKeys(const std::string& path, std::vector<std::string>& keys) const {
    keys = document_.keys(path);
    for (const auto& [name, edit] : keyEdits_) {
        if (name.first == sectionPath(path))
            mergeName(keys, name.second, edit.state.has_value());
    }
}

void ConfigurationFile::listGroups(const std::string& path, const std::string& typeWord,
                                   std::vector<std::string>& keys) const {
    keys = document_.groups(path, typeWord);
    const auto merge = [&](const GroupName& group, bool present) {
        if (std::get<0>(group) == sectionPath(path) && std::get<1>(group) == typeWord)
            mergeName(keys, std::get<2>(group), present);
    };
    for (const auto& [group, attributes] : groupEdits_)
        merge(group, attributes.has_value());
    for (const auto& [group, edits] : attributeEdits_) {
        ConfigurationDocument::Attributes attributes;
        std::map<std::string, int> locks;
        bool isLocked = false;
        merge(group, readGroup(path, typeWord, std::get<2>(group), attributes, locks, isLocked));
    }
}

bool ConfigurationFile::readGroup(const std::string& path, const std::string& typeWord,
                                  const std::string& key, std::map<std::string, std::string>& attributes,
                                  std::map<std::string, int>& locks, bool& groupLocked) const {
    if (groupEdits_.empty() && attributeEdits_.empty())
        return document_.readGroup(path, typeWord, key, attributes, locks, groupLocked);
    const GroupName name(sectionPath(path), typeWord, key);
    if (const auto edit = groupEdits_.find(name); edit != groupEdits_.end()) {
        attributes = edit->second.value_or(ConfigurationDocument::Attributes());
        locks.clear();
        return edit->second.has_value();
    }
    bool isThere = document_.readGroup(path, typeWord, key, attributes, locks, groupLocked);
    const auto edits = attributeEdits_.find(name);
    if (edits == attributeEdits_.end())
        return isThere;
    for (const auto& [attribute, edit] : edits->second) {
        if (edit.text)
            attributes[attribute] = *edit.text;
        else
            attributes.erase(attribute);
    }
    return !attributes.empty() || !locks.empty() || groupLocked;
}

bool ConfigurationFile::readList(const std::string& path, const std::string& key,
                                 std::vector<std::string>& values, std::vector<std::uint8_t>& locks) const {
    const bool present = document_.readKey(path, key, values, locks);
    if (keyEdits_.empty())
        return present;
    const auto edit = keyEdits_.find(KeyView(sectionPath(path), key));
    if (edit == keyEdits_.end())
        return present;
    const auto& state = edit->second.state;
    values = state ? state->values : std::vector<std::string>();
    locks.resize(values.size(), document_.isKeyLocked(path, key));
    return state.has_value();
}

// Names stand in XML attributes, where nothing can be encoded. The product's own names are plain words.
bool ConfigurationFile::canBeNamed(std::initializer_list<std::string_view> names) {
    const auto isName = [](std::string_view name) {
        return name.size() <= kLongestText && platform::isXmlText(name);
    };
    return std::all_of(names.begin(), names.end(), isName) ||
           refused("cannot write: a name is too long, or holds control characters or no UTF-8");
}

bool ConfigurationFile::canBeText(const std::string& text) {
    return text.size() <= kLongestText || refused("cannot write: a text is too long");
}

bool ConfigurationFile::refused(const std::string& cause) {
    refused_ = Error{path_, cause};
    errorLog().report(*refused_);
    return false;
}

/// @param isSaid whether the file, as it was read, says so already.
void ConfigurationFile::noteKey(const std::string& path, const std::string& key, KeyEdit edit, bool isSaid) {
    // Nobody knows what an unread file says.
    if (state_ == FileState::unreadable || !isSaid) {
        keyEdits_.insert_or_assign(KeyName(sectionPath(path), key), std::move(edit));
        revision_ = nextRevision();
    } else if (const auto known = keyEdits_.find(KeyView(sectionPath(path), key)); known != keyEdits_.end()) {
        keyEdits_.erase(known);
        revision_ = nextRevision();
    }
}

bool ConfigurationFile::saysOfKey(const std::string& path, const std::string& key,
                                  const std::optional<KeyState>& state) const {
    const bool isThere = document_.hasKey(path, key);
    if (!state || !isThere)
        return !state && !isThere;
    std::vector<std::string> values;
    std::vector<std::uint8_t> locks;
    return document_.readKey(path, key, values, locks) && values == state->values;
}

void ConfigurationFile::noteGroup(const std::string& path, const std::string& typeWord,
                                  const std::string& key,
                                  std::optional<ConfigurationDocument::Attributes> attributes) {
    const bool isSaid = state_ != FileState::unreadable && saysOfGroup(path, typeWord, key, attributes);
    if (isSaid && groupEdits_.empty() && attributeEdits_.empty())
        return;
    GroupName name(sectionPath(path), typeWord, key);
    attributeEdits_.erase(name);
    if (isSaid)
        groupEdits_.erase(name);
    else
        groupEdits_.insert_or_assign(std::move(name), std::move(attributes));
    revision_ = nextRevision();
}

/// @param isSaid whether the file, as it was read, says so already.
void ConfigurationFile::noteAttribute(GroupName group, const std::string& name, AttributeEdit edit,
                                      bool isSaid) {
    if (const auto whole = groupEdits_.find(group); whole != groupEdits_.end()) {
        editAttribute(whole->second, name, edit);
    } else if (state_ == FileState::unreadable || !isSaid) {
        attributeEdits_[std::move(group)].insert_or_assign(name, std::move(edit));
    } else if (const auto known = attributeEdits_.find(group); known != attributeEdits_.end()) {
        known->second.erase(name);
        if (known->second.empty())
            attributeEdits_.erase(known);
    } else {
        return;
    }
    revision_ = nextRevision();
}

// A group that is written carries no lock marks, so one that has some says something else.
bool ConfigurationFile::saysOfGroup(
    const std::string& path, const std::string& typeWord, const std::string& key,
    const std::optional<ConfigurationDocument::Attributes>& attributes) const {
    const bool isThere = document_.hasGroup(path, typeWord, key);
    if (!attributes || !isThere)
        return !attributes && !isThere;
    ConfigurationDocument::Attributes present;
    std::map<std::string, int> locks;
    bool locked = false;
    return document_.readGroup(path, typeWord, key, present, locks, locked) && !locked && locks.empty() &&
           present == *attributes;
}

} // namespace suite
