#pragma once

#include "orv/locknote.h"
#include "suite/export.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Orv {

/// A value or item, or an attribute of a group, as a configuration has it.
struct ConfigurationPart {
    std::string_view name = {}; ///< of an attribute; empty for values and items
    std::string_view text = {};
    bool hasText = true;          ///< false for an attribute that is locked without a text of its own
    bool isLocked = false;        ///< by its own mark, or by that of the whole
    std::string_view reason = {}; ///< of a lock, in the administrator's words; what is nearest counts
    std::string_view contact = {};
};

/// A value, list or group, as a configuration has it. The views are good while it is told.
struct ConfigurationEntry {
    std::string_view path;          ///< without a slash at its end
    std::string_view typeWord = {}; ///< empty for values and lists
    std::string_view key;
    std::span<const ConfigurationPart> parts; ///< a value has one, a list one an item, in file order
    bool isLocked = false;                    ///< as a whole
    std::string_view reason = {};             ///< of a lock of the whole
    std::string_view contact = {};
};

/// One directory's configuration: values, lists and groups of named attributes, each at a path such as
/// "Orvane/SETTINGS". A slash at the end of a path means nothing. Texts are UTF-8.
///
/// Changes are kept in memory; IOvConfigurationManager::ReleaseConfiguration writes them. The order of the
/// operations is part of the binary contract.
class OVSUITE_API IOvConfiguration {
public:
    virtual ~IOvConfiguration() = default;

    /// Stores a group in place of any of that type and key.
    virtual void writeGroup(const std::string& path, const std::string& typeWord, const std::string& key,
                            const std::map<std::string, std::string>& attributes) = 0;
    virtual void writeList(const std::string& path, const std::string& key,
                           const std::vector<std::string>& values) = 0;
    virtual void writeValue(const std::string& path, const std::string& key, const std::string& value) = 0;

    /// The keys of the values and lists at a path, in file order.
    virtual void listKeys(const std::string& path, std::vector<std::string>& keys) const = 0;
    /// The keys of the groups of a type at a path, in file order.
    virtual void listGroups(const std::string& path, const std::string& typeWord,
                            std::vector<std::string>& keys) const = 0;

    /// @param attributes  receives each attribute's text; cleared first.
    /// @param locks       receives 1 for each attribute marked as locked; cleared first. An attribute may be
    ///                    locked without a text of its own and is then in `locks` only.
    /// @param groupLocked set to true if the group as a whole is locked, left alone otherwise.
    /// @return false, with the outputs empty, when the group is absent.
    virtual bool readGroup(const std::string& path, const std::string& typeWord, const std::string& key,
                           std::map<std::string, std::string>& attributes, std::map<std::string, int>& locks,
                           bool& groupLocked) const = 0;
    /// Reads a list, or a single value as a list of one.
    /// @param locks one flag a value, 1 where it is locked.
    /// @return false, with the outputs empty, when the key is absent.
    virtual bool readList(const std::string& path, const std::string& key, std::vector<std::string>& values,
                          std::vector<std::uint8_t>& locks) const = 0;
    virtual void removeGroup(const std::string& path, const std::string& typeWord,
                             const std::string& key) = 0;
    virtual void removeKey(const std::string& path, const std::string& key) = 0;

    /// A number for what the configuration says, changes that are not written yet included: two
    /// configurations of one process with the same number say the same. 0 is no such number: it comes
    /// from a host that does not number its configurations.
    virtual std::uint64_t revision() const { return 0; }

    /// Stores one attribute of a group, which is made where it is absent. The other attributes and, but in a
    /// configuration that does not override this, all lock marks stay.
    virtual void writeAttribute(const std::string& path, const std::string& typeWord, const std::string& key,
                                const std::string& name, const std::string& text);
    /// Takes a value or list out, unless it, or an item of it, bears a lock mark when the change is written.
    /// @param ifSays where it is not null, only what still says this by then goes.
    virtual void withdrawKey(const std::string& path, const std::string& key,
                             const std::vector<std::string>* ifSays);
    /// Takes one attribute out of a group, unless it bears a lock mark when the change is written; with the
    /// last attribute goes a group that bears no mark itself.
    /// @param ifSays where it is not null, only an attribute that still says this by then goes.
    virtual void withdrawAttribute(const std::string& path, const std::string& typeWord,
                                   const std::string& key, const std::string& name,
                                   const std::string* ifSays);

    /// What stands beside the lock of an item: on the item, or else on its list, or else on the section. A
    /// single value is the item 0 of its key.
    virtual LockNote keyLockNote(const std::string& path, const std::string& key, std::size_t item) const;
    /// What stands beside the lock of an attribute: on it, or else on its group, or else on the section.
    virtual LockNote groupLockNote(const std::string& path, const std::string& typeWord,
                                   const std::string& key, const std::string& name) const;

    /// Receives one entry. It must not call the configuration.
    using EntryReader = std::function<void(const ConfigurationEntry&)>;
    /// Tells all that the configuration says, in file order; of entries, and of attributes in a group, that
    /// have one name, the first. It is what the operations above answer, for the price of one walk.
    /// @return false, with nothing told, where a configuration cannot tell all at once: it has changes that
    ///         are not written, or does not know this operation.
    virtual bool readAll(const EntryReader& reader) const;
};

/// Hands out the configurations of directories.
class OVSUITE_API IOvConfigurationManager {
public:
    /// What a configuration is wanted for. It matters for a damaged file only: there is nothing to read in
    /// one, yet a user must be able to save again.
    enum class Access {
        read, ///< a damaged file yields no configuration
        write ///< a damaged file yields an empty one, and is moved aside before the first write
    };
    /// Receives one line that names the file and the cause. It must not throw. The handler is copied: what it
    /// is to remember stands outside of it.
    using ErrorHandler = std::function<void(const std::string& message)>;

    static IOvConfigurationManager& Instance();

    virtual ~IOvConfigurationManager() = default;

    /// @return the directory's configuration, to be given back to ReleaseConfiguration; null where the
    ///         directory does not exist or its file cannot be read.
    virtual IOvConfiguration* GetConfiguration(const std::string& directory,
                                               Access access = Access::read) = 0;

    /// Writes what was changed, if anything was, and frees the object.
    /// @return false if a write was needed and failed; the old file is then whole and the error handler was
    /// told.
    virtual bool ReleaseConfiguration(IOvConfiguration* configuration) = 0;

    /// Sets who is told whatever goes wrong, damaged files and failed writes say. An empty handler restores
    /// the standard error stream. Any other is told, before this returns, of the damage that was found until
    /// now in files that are still as they were.
    virtual void SetErrorHandler(ErrorHandler handler) = 0;

    /// The path of what a directory's configuration is kept in, whether it is there or not: who watches the
    /// configuration watches this. The directory itself, if a manager does not say.
    virtual std::string FileOf(const std::string& directory) const { return directory; }
    /// Tells what is wrong with another part of the installation, the dialog's catalogue say: the error
    /// handler or, if none is set, the standard error stream. By default the stream.
    /// @param message one line that names the file and the cause.
    virtual void ReportError(const std::string& message) { std::fputs((message + "\n").c_str(), stderr); }
};

} // namespace Orv
