#pragma once

#include "orv/locknote.h"
#include "platform/result.h"
#include "platform/xmltree.h"
#include "suite/configuration.h"
#include "suite/configurations/entryindex.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace suite {

/// The contents of one configuration file, `orvane.xml`. Everything that an edit does not concern is kept to
/// the byte. Edits are collected, and laid onto the text when someone asks for it, or for what they concern.
///
/// Of several elements with the same key the first counts; an edit removes the others.
class ConfigurationDocument {
public:
    using Attributes = std::map<std::string, std::string>;
    using Values = std::vector<std::string>;
    using EntryReader = Orv::IOvConfiguration::EntryReader;
    /// Told of every part of the file that cannot be taken as it stands, when it is met.
    using Reporter = std::function<void(platform::Error)>;

    /// Does not say anything: what a missing file amounts to.
    ConfigurationDocument() = default;

    /// @return an error with the line if the bytes are no configuration.
    static platform::Result<ConfigurationDocument> parse(std::string bytes);

    void setReporter(Reporter reporter) { reporter_ = std::move(reporter); }

    /// The readers replace their outputs; those that find nothing leave them empty and return false.
    bool readKey(const std::string& path, const std::string& key, Values& values,
                 std::vector<std::uint8_t>& locks) const;
    bool readGroup(const std::string& path, const std::string& type, const std::string& key,
                   Attributes& attributes, std::map<std::string, int>& locks, bool& groupLocked) const;
    /// Whether there is a value or list, or a group, of that name.
    bool hasKey(const std::string& path, const std::string& key) const { return bool(find(path, {}, key)); }
    bool hasGroup(const std::string& path, const std::string& type, const std::string& key) const {
        return bool(find(path, type, key));
    }
    /// True if a value or list is locked as a whole.
    bool isKeyLocked(const std::string& path, const std::string& key) const;
    /// What stands beside a lock, from the part itself to the section; each word by itself, the nearest
    /// counts.
    Orv::LockNote keyLockNote(const std::string& path, const std::string& key, std::size_t item) const;
    Orv::LockNote attributeLockNote(const std::string& path, const std::string& type, const std::string& key,
                                    const std::string& name) const;
    /// All that the file says, as IOvConfiguration::readAll tells it.
    void readAll(const EntryReader& reader) const;
    Values keys(const std::string& path) const;
    Values groups(const std::string& path, const std::string& type) const;

    /// A value that is written where a list stands becomes a value, and the other way round. Lock marks stay.
    void writeValue(const std::string& path, const std::string& key, const std::string& value);
    void writeList(const std::string& path, const std::string& key, const Values& values);
    void removeKey(const std::string& path, const std::string& key);
    /// A group that is written loses its lock marks.
    void writeGroup(const std::string& path, const std::string& type, const std::string& key,
                    const Attributes& attributes);
    void removeGroup(const std::string& path, const std::string& type, const std::string& key);
    /// All else in the group stays, lock marks included.
    void writeAttribute(const std::string& path, const std::string& type, const std::string& key,
                        const std::string& name, const std::string& text);

    /// Whether something is there that bears no lock mark and, where `ifSays` is not null, says this.
    bool canWithdrawKey(const std::string& path, const std::string& key, const Values* ifSays) const;
    bool canWithdrawAttribute(const std::string& path, const std::string& type, const std::string& key,
                              const std::string& name, const std::string* ifSays) const;
    /// Takes an attribute out, and its group with it if nothing else is in there.
    void removeAttribute(const std::string& path, const std::string& type, const std::string& key,
                         const std::string& name);

    /// Lays the edits onto the text.
    /// @return an error if the two make no XML; the text is then as it was, and the edits wait.
    platform::Result<> serialise() const;
    /// In UTF-8.
    const std::string& text() const { return xml_.text(); }
    /// The file as it was parsed, or as it was serialised last, then in UTF-8.
    const std::string& bytes() const { return foreign_.empty() ? xml_.text() : foreign_; }

    /// How much memory it takes, in bytes.
    std::size_t footprint() const { return xml_.footprint() + foreign_.size(); }
    /// Whether there is no file, and no change that would make one.
    bool saysNothing() const { return edits_.empty() && xml_.text().empty(); }

    /// True once a part of the file could not be taken as it stands.
    bool isFlawed() const { return flawed_; }

private:
    using EditedName = std::tuple<std::string, std::string, std::string>; // section path, type word, key

    /// The entries that count, and by their names.
    struct Index {
        EntryIndex names;
        std::vector<std::uint32_t> entries; ///< in the order of the file
        std::vector<std::pair<std::uint32_t, std::uint32_t>>
            duplicates; ///< what counts, and another of its name
    };
    /// What an entry is to be. A group that is there keeps what `attributes` does not name.
    struct Edit {
        enum class Kind { removed, value, list, group, attributes };

        std::size_t turn; ///< of all edits
        Kind kind;
        Values values = {};
        std::map<std::string, std::optional<std::string>> attributes = {};
    };
    class Writer;

    class Teller;

    const Index& index() const;
    void indexEntry(Index& index, std::uint32_t scope, platform::XmlNode element) const;
    std::uint32_t placeOf(const std::string& path, const std::string& type, const std::string& key) const;
    /// @param attribute where it is not null, only that one of the group is of interest.
    platform::XmlNode find(const std::string& path, const std::string& type, const std::string& key,
                           const std::string* attribute = nullptr) const;
    platform::XmlNode findAttribute(const std::string& path, const std::string& type, const std::string& key,
                                    const std::string& name) const;
    Values names(const std::string& path, const std::string& type) const;

    /// The attributes of a group that count.
    /// @param take receives each as a part, without the words beside its lock, and its element.
    template <typename Take>
    void readAttributes(platform::XmlNode group, Take take) const;

    const Edit* pendingEdit(const std::string& path, const std::string& type, const std::string& key) const;
    void editAttribute(const std::string& path, const std::string& type, const std::string& key,
                       const std::string& name, std::optional<std::string> text);
    Edit& edit(const std::string& path, const std::string& type, const std::string& key, Edit::Kind kind);
    void beginFile() const;
    platform::Result<> applyEdits() const;

    /// @return false if the encoding is unknown or the text not valid in it; the text is then as it stands.
    bool readText(platform::XmlNode element, std::string& storage, std::string_view& text) const;
    std::string_view textOf(platform::XmlNode element, std::string& storage) const;
    bool isLocked(platform::XmlNode element) const;
    void report(platform::XmlNode element, std::string text) const;

    mutable platform::XmlTree xml_;
    mutable std::string foreign_; ///< the bytes of a file that is not in UTF-8
    Reporter reporter_;
    mutable std::optional<Index> index_;
    mutable std::map<EditedName, Edit> edits_;
    mutable bool flawed_ = false;
};

} // namespace suite
