#pragma once

#include "orv/locknote.h"
#include "suite/configuration.h"

#include <libxml/tree.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace suite {

/// A place in a configuration file and what is wrong there.
struct Problem {
    long line = 0; ///< from 1; 0 if it concerns the file as a whole
    std::string text;
};

/// The contents of one configuration file, `orvane.xml`. Everything that an edit does not concern is kept:
/// comments, unknown elements and attributes, order and indentation.
///
/// Of several elements with the same key the first counts; an edit removes the others.
class ConfigurationDocument {
public:
    using Attributes = std::map<std::string, std::string>;
    using Values = std::vector<std::string>;
    /// Told of every part of the file that cannot be taken as it stands, each time it is met.
    using Reporter = std::function<void(const Problem&)>;

    /// Does not say anything: what a missing file amounts to.
    ConfigurationDocument();

    /// @return nothing, with `problem` filled in, if the bytes are no configuration.
    static std::optional<ConfigurationDocument> parse(std::string_view bytes, Problem& problem);

    void setReporter(Reporter reporter) { reporter_ = std::move(reporter); }

    /// The readers replace their outputs; those that find nothing leave them empty and return false.
    bool readKey(const std::string& path, const std::string& key, Values& values,
                 std::vector<std::uint8_t>& locks) const;
    bool readGroup(const std::string& path, const std::string& type, const std::string& key,
                   Attributes& attributes, std::map<std::string, int>& locks, bool& groupLocked) const;
    /// Whether there is a value or list, or a group, of that name.
    bool hasKey(std::string_view path, std::string_view key) const {
        return find(path, {{}, key}) != nullptr;
    }
    bool hasGroup(std::string_view path, std::string_view type, std::string_view key) const {
        return find(path, {type, key}) != nullptr;
    }
    /// True if a value or list is locked as a whole.
    bool isKeyLocked(const std::string& path, const std::string& key) const;
    /// What stands beside a lock, from the part itself to the section; each word by itself, the nearest
    /// counts.
    Orv::LockNote keyLockNote(const std::string& path, const std::string& key, std::size_t item) const;
    Orv::LockNote attributeLockNote(const std::string& path, const std::string& type, const std::string& key,
                                    const std::string& name) const;
    /// All that the file says, as IOvConfiguration::readAll tells it.
    void readAll(const std::function<void(const Orv::ConfigurationEntry&)>& reader) const;
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

    /// The text of the file. Empty if it could not be produced, which takes a lack of memory.
    std::string serialise() const;

    /// True once a part of the file could not be taken as it stands.
    bool isFlawed() const { return flawed_; }

private:
    // Type word and name; the type word of values and lists is empty. All views are into the tree.
    using Name = std::pair<std::string_view, std::string_view>;
    struct NameHash {
        std::size_t operator()(const Name& name) const;
    };
    struct Section {
        std::vector<xmlNode*> elements;
        std::unordered_map<Name, xmlNode*, NameHash> entries;
        std::vector<std::pair<Name, xmlNode*>> duplicates;
    };
    using Index = std::unordered_map<std::string_view, Section>;
    /// The section that was asked for last, null if there is none: keys are asked for section by section.
    struct Recent {
        std::string path;
        const Section* section = nullptr;
        bool isKnown = false;
    };
    struct FreeTree {
        void operator()(xmlDoc* tree) const { xmlFreeDoc(tree); }
    };

    const Index& index() const;
    void indexSection(xmlNode* element) const;
    void indexEntry(Section& section, xmlNode* element) const;
    const Section* section(std::string_view path) const;
    const xmlNode* find(std::string_view path, const Name& name) const;
    Values names(const std::string& path, std::string_view type) const;

    Section& obtainSection(const std::string& path);
    xmlNode* obtain(const std::string& path, const std::string& type, const std::string& key,
                    const char* element);
    void remove(const std::string& path, const Name& name);
    void removeDuplicates(Section& section, const Name& name);

    xmlNode* findAttribute(const std::string& path, const std::string& type, const std::string& key,
                           const std::string& name) const;

    void readText(const xmlNode* element, std::string& text) const;
    bool isLocked(const xmlNode* element) const;
    void report(const xmlNode* element, std::string text) const;

    std::unique_ptr<xmlDoc, FreeTree> tree_;
    Reporter reporter_;
    mutable Index index_;
    mutable Recent recent_;
    mutable bool indexed_ = false;
    mutable bool flawed_ = false;
};

/// Drops the slashes at the end of a section path, which mean nothing.
std::string_view sectionPath(std::string_view path);

} // namespace suite
