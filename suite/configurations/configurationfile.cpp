#include "suite/configurations/configurationfile.h"

#include "platform/atomicfile.h"
#include "platform/readfile.h"
#include "suite/configurations/xmltext.h"

#include <algorithm>
#include <atomic>
#include <cerrno>

namespace suite {

namespace {

constexpr std::string_view kDamaged = "damaged";
// Well inside the parser's own limit of 10 million bytes, beyond which it would call the file damaged.
constexpr std::size_t kLongestText = 4u << 20;

std::string located(const std::string& path, const Problem& problem) {
    return path + ":" + (problem.line > 0 ? std::to_string(problem.line) + ":" : "") + " " + problem.text;
}

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

ConfigurationFile::ConfigurationFile(std::string path, ErrorLog& log) : path_(std::move(path)), log_(log) {
}

void ConfigurationFile::read(std::optional<Contents> known) {
    if (known)
        bytes_ = std::move(known->bytes);
    if (known && known->stamp.isSettled())
        stamp_ = platform::FileStamp::of(path_);
    std::optional<ConfigurationDocument> document;
    const bool isSettled = stamp_.isOfFile() && stamp_ == known->stamp;
    state_ = isSettled ? FileState::unchanged : readFile(bytes_, document, stamp_, complaint_);
    if (state_ == FileState::unchanged) {
        state_ = FileState::read;
        document = std::move(known->document);
        revision_ = known->revision;
    } else if (state_ == FileState::read) {
        revision_ = nextRevision();
    }
    if (document)
        document_ = std::move(*document);
    document_.setReporter(
        [this](const Problem& problem) { log_.reportOnce(path_, located(path_, problem)); });
}

bool ConfigurationFile::isWhole() const {
    if (complaint_.empty())
        return true;
    log_.reportOnce(path_, complaint_);
    return false;
}

ConfigurationFile::FileState ConfigurationFile::readFile(std::string& bytes,
                                                         std::optional<ConfigurationDocument>& document,
                                                         platform::FileStamp& stamp,
                                                         std::string& complaint) const {
    std::string now;
    if (const auto failure = platform::readFile(path_, now, platform::kLargestDocument, stamp)) {
        bytes.clear();
        if (failure->code == ENOENT)
            return FileState::missing;
        complaint = failure->text();
        // One that is too large may be whole all the same.
        return failure->code == EISDIR ? FileState::damaged : FileState::unreadable;
    }
    if (!now.empty() && now == bytes)
        return FileState::unchanged;
    bytes = std::move(now);
    Problem problem;
    document = ConfigurationDocument::parse(bytes, problem);
    if (document)
        return FileState::read;
    complaint = located(path_, problem);
    return FileState::damaged;
}

bool ConfigurationFile::failed(const std::string& message) const {
    log_.report(message);
    return false;
}

bool ConfigurationFile::save(platform::LockPatience& patience) {
    if (keyEdits_.empty() && groupEdits_.empty() && attributeEdits_.empty())
        return !wasRefused_;
    platform::AtomicFile file(path_);
    const auto busy = file.lock(patience.timeout());
    patience.note(busy);
    if (busy)
        return failed(busy->text());

    std::string bytes = bytes_;
    std::optional<ConfigurationDocument> current;
    platform::FileStamp stamp;
    std::string complaint;
    FileState state = readFile(bytes, current, stamp, complaint);
    // What cannot be read may be whole, and is not replaced by what was known of it.
    if (state == FileState::unreadable)
        return failed(complaint);
    if (state == FileState::damaged)
        log_.reportOnce(path_, complaint);
    if (state == FileState::unchanged)
        state = state_;
    else if (state == FileState::missing)
        current.emplace();
    // A file that was damaged meanwhile has nothing better to offer than what was read before.
    ConfigurationDocument& document = current ? *current : document_;
    applyEdits(document);
    const std::string text = document.serialise();
    if (text.empty())
        return failed(path_ + ": cannot write: out of memory");
    if (text.size() > platform::kLargestDocument)
        return failed(platform::FileError{path_, "write", EFBIG, platform::kLargestDocument}.text());

    std::string aside;
    if (state == FileState::damaged) {
        if (const auto failure = file.moveAside(kDamaged, aside))
            return failed(failure->text());
    }
    if (const auto failure = file.write(text)) {
        if (!aside.empty())
            file.moveBack(aside);
        return failed(failure->text());
    }
    if (!aside.empty())
        log_.report(path_ + ": the damaged file is kept as " + aside);
    state_ = FileState::read;
    bytes_ = text;
    stamp_ = {};
    if (current) {
        // What others wrote meanwhile is in it, too.
        document_ = std::move(*current);
        revision_ = nextRevision();
    }
    return !wasRefused_;
}

std::optional<ConfigurationFile::Contents> ConfigurationFile::takeContents() {
    if (state_ != FileState::read || document_.isFlawed())
        return std::nullopt;
    document_.setReporter({});
    return Contents{std::move(path_), std::move(bytes_), std::move(document_), revision_, stamp_};
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
    if (!keyEdits_.empty() || !groupEdits_.empty() || !attributeEdits_.empty())
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
        return name.size() <= kLongestText && xml::isCarried(name);
    };
    return std::all_of(names.begin(), names.end(), isName) ||
           refused(path_ + ": cannot write: a name is too long, or holds control characters or no UTF-8");
}

bool ConfigurationFile::canBeText(const std::string& text) {
    return text.size() <= kLongestText || refused(path_ + ": cannot write: a text is too long");
}

bool ConfigurationFile::refused(const std::string& message) {
    wasRefused_ = true;
    return failed(message);
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
