#pragma once

#include "platform/filelock.h"
#include "platform/filestamp.h"
#include "platform/result.h"
#include "suite/configuration.h"
#include "suite/configurations/document.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

namespace suite {

/// The configuration of one directory. What is written is kept beside the file's contents, as the state that
/// each key is meant to have, and only where that differs from what the file says: steps that cancel each
/// other out, and values that are there already, come to nothing.
class ConfigurationFile final : public Orv::IOvConfiguration {
public:
    /// A file and what it amounts to.
    struct Contents {
        std::string path;
        ConfigurationDocument document;
        std::uint64_t revision;
        platform::FileStamp stamp; ///< from before the bytes were read; of no file if they were written
    };

    /// @param path where `orvane.xml` is, or would be.
    explicit ConfigurationFile(std::string path) : path_(std::move(path)) {}

    const std::string& path() const { return path_; }

    /// Reads the file; a missing one says nothing.
    /// @param known what is known of this file; it need not be parsed again if it still has these bytes, nor
    ///              read if it is settled and still has this stamp.
    void read(std::optional<Contents> known);
    /// Whether there was a file to read.
    bool wasOpened() const { return state_ == FileState::read || state_ == FileState::damaged; }
    /// @return false, after a report, if what was read is damaged or could not be read; the configuration is
    ///         then an empty one.
    bool isWhole() const;

    /// Writes the changes, if there are any. They are applied to the file as it is by then, so what others
    /// changed meanwhile stays.
    /// @param patience with the file's lock.
    /// @return whether anything had to be written; after a report, why not all could be.
    platform::Result<bool> save(platform::LockPatience& patience);

    /// After a save that succeeded: the file as it is by now. Nothing if there is none, or if it has flaws,
    /// which are to be found again, and in their new places, whenever it is read.
    std::optional<Contents> takeContents();

    void writeGroup(const std::string& path, const std::string& typeWord, const std::string& key,
                    const std::map<std::string, std::string>& attributes) override;
    void writeList(const std::string& path, const std::string& key,
                   const std::vector<std::string>& values) override;
    void writeValue(const std::string& path, const std::string& key, const std::string& value) override;
    void listKeys(const std::string& path, std::vector<std::string>& keys) const override;
    void listGroups(const std::string& path, const std::string& typeWord,
                    std::vector<std::string>& keys) const override;
    bool readGroup(const std::string& path, const std::string& typeWord, const std::string& key,
                   std::map<std::string, std::string>& attributes, std::map<std::string, int>& locks,
                   bool& groupLocked) const override;
    bool readList(const std::string& path, const std::string& key, std::vector<std::string>& values,
                  std::vector<std::uint8_t>& locks) const override;
    void removeGroup(const std::string& path, const std::string& typeWord, const std::string& key) override;
    void removeKey(const std::string& path, const std::string& key) override;
    std::uint64_t revision() const override { return revision_; }
    void writeAttribute(const std::string& path, const std::string& typeWord, const std::string& key,
                        const std::string& name, const std::string& text) override;
    void withdrawKey(const std::string& path, const std::string& key,
                     const std::vector<std::string>* ifSays) override;
    void withdrawAttribute(const std::string& path, const std::string& typeWord, const std::string& key,
                           const std::string& name, const std::string* ifSays) override;
    Orv::LockNote keyLockNote(const std::string& path, const std::string& key,
                              std::size_t item) const override;
    Orv::LockNote groupLockNote(const std::string& path, const std::string& typeWord, const std::string& key,
                                const std::string& name) const override;
    bool readAll(const EntryReader& reader) const override;

private:
    struct KeyState {
        std::vector<std::string> values;
        bool isList = false;
    };
    struct KeyEdit {
        std::optional<KeyState> state = {}; ///< nothing for what is to be removed
        bool spareLocked = false;           ///< only what turns out to bear no lock mark goes
        std::optional<std::vector<std::string>> ifSays = {}; ///< only what turns out to say this goes
    };
    struct AttributeEdit {
        std::optional<std::string> text; ///< nothing for what is to be removed, if it bears no lock mark
        std::optional<std::string> ifSays;
    };
    using KeyName = std::pair<std::string, std::string>; // section path, key
    using KeyView = std::pair<std::string_view, std::string_view>;
    /// Looks a name up without making strings of it: a save asks for each of its keys.
    struct KeyLess {
        using is_transparent = void;
        bool operator()(const KeyView& a, const KeyView& b) const { return a < b; }
    };
    using GroupName = std::tuple<std::string, std::string, std::string>; // section path, type word, key
    using KeyEdits = std::map<KeyName, KeyEdit, KeyLess>;
    // Nothing for what is to be removed.
    using GroupEdits = std::map<GroupName, std::optional<ConfigurationDocument::Attributes>>;
    using AttributeEdits = std::map<GroupName, std::map<std::string, AttributeEdit>>;

    /// One that cannot be read may be as good as ever the next time.
    enum class FileState { missing, read, unchanged, damaged, unreadable };

    /// What was found in the place of the file.
    struct Reading {
        FileState state;
        std::optional<ConfigurationDocument> document = {};
        std::optional<platform::Error> complaint = {}; ///< if it is damaged or unreadable
    };

    bool hasEdits() const { return !keyEdits_.empty() || !groupEdits_.empty() || !attributeEdits_.empty(); }
    /// @param known what the file said when it was read last, if it did.
    Reading reading(platform::Result<std::string> found, const ConfigurationDocument* known) const;
    void noteKey(const std::string& path, const std::string& key, KeyEdit edit, bool isSaid);
    bool saysOfKey(const std::string& path, const std::string& key,
                   const std::optional<KeyState>& state) const;
    void noteGroup(const std::string& path, const std::string& typeWord, const std::string& key,
                   std::optional<ConfigurationDocument::Attributes> attributes);
    bool saysOfGroup(const std::string& path, const std::string& typeWord, const std::string& key,
                     const std::optional<ConfigurationDocument::Attributes>& attributes) const;
    /// Refused texts are reported, and make the save fail when all else is written.
    bool canBeNamed(std::initializer_list<std::string_view> names);
    bool canBeText(const std::string& text);
    bool refused(const std::string& cause);
    void noteAttribute(GroupName group, const std::string& name, AttributeEdit edit, bool isSaid);
    void applyEdits(ConfigurationDocument& document) const;
    platform::Result<bool> writeEdits(platform::LockPatience& patience);

    std::string path_;
    platform::FileStamp stamp_;
    std::optional<platform::Error> complaint_; ///< about what was read
    FileState state_ = FileState::missing;
    ConfigurationDocument document_;
    KeyEdits keyEdits_;
    GroupEdits groupEdits_;
    AttributeEdits attributeEdits_; ///< of no group that has an edit
    std::uint64_t revision_ = 0;
    std::optional<platform::Error> refused_; ///< what was to be written last that no file can hold
};

} // namespace suite
