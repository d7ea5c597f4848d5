#pragma once

#include "orv/graphics.h"
#include "orv/locknote.h"
#include "ovsettings/export.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Orv {

/// What iAppConfiguration::refresh did.
struct OVSETTINGS_API RefreshResult {
    struct Field {
        std::string key;
        std::size_t field = 0; ///< from 0; of a list, which is changed as a whole, 0

        bool operator==(const Field&) const = default;
    };

    bool isDone = false; ///< false where a refresh was refused; nothing has changed then
    std::vector<std::string>
        changed; ///< the keys whose values in force, or locks, are others now; in table order
    std::vector<Field>
        dropped; ///< unsaved changes that were given up, since somebody locked the field meanwhile
};

/// The application configuration: an ordered table of named properties, 255 as shipped, each with its values,
/// its defaults and a lock for each field.
///
/// Every value is text (UTF-8, numbers with "." whatever the locale). Numbers and object graphics are also
/// kept in typed caches, which getNumber and getGraphics read without an allocation at the cost of one hashed
/// look-up, or by a handle at that of an array access: they are meant for drawing code. Lengths (keys ending
/// in `_HR`) are in units of 10 nanometres, 2,540,000 to the inch.
///
/// A new object is empty; the first load fills it. Single-threaded: all calls belong on one thread. Nothing
/// here throws on bad input; an unknown key is answered with false, 0 or an empty text.
class OVSETTINGS_API iAppConfiguration {
public:
    /// What a property holds. The number of fields, and their order, follow from it.
    enum Kind : int {
        KindFlag = 1,      ///< one field, "0" or "1"
        KindNumber = 2,    ///< one field, decimal text
        KindLayer = 3,     ///< COLOR, FILL_STYLE, LINE_STYLE
        KindObject = 4,    ///< VISIBLE, SELECTABLE, COLOR, FILL_STYLE, LINE_STYLE, LINE_THICKNESS
        KindList = 5,      ///< any number of fields
        KindText = 6,      ///< one field, verbatim
        KindSize = 7,      ///< WIDTH, HEIGHT, in units of 10 nm, fractions allowed
        KindFont = 8,      ///< FACE, STYLE, WEIGHT, CHARSET, ITALIC, UNDERLINE, STRIKEOUT, BOLD
        KindIctObject = 9, ///< COLOR, TEXTCOLOR
    };

    /// One property, as a copy. Colours are text "0xRRGGBB".
    struct OVSETTINGS_API Property {
        Property() = default;
        /// A query for a key: everything but the name is empty.
        explicit Property(std::string key) : name(std::move(key)) {}

        std::string name;                   ///< the key, compared exactly
        std::vector<std::uint8_t> readonly; ///< one flag a field, 1 where the field is locked
        std::vector<std::string> values;    ///< one text a field; as long as `readonly`
        std::vector<std::string> defaults;  ///< what counts as not customised; may be empty
        int kind = 0;                       ///< not filled by getProperty; see kindOf
    };

    /// Told of every attempt to change a property. Not owned; stays registered across loads.
    class OVSETTINGS_API iEventSink {
    public:
        /// @param key   the property.
        /// @param value the first incoming field read as a number, 0 if there is none. Called before the
        ///              value is stored, also when a lock then keeps the old one.
        virtual void propertyChanged(const std::string& key, float value) = 0;
        virtual ~iEventSink() = default;
    };

    /// A key that was looked up once. What is read by it costs as much as a look into an array, and is what
    /// the key reads at that moment.
    ///
    /// It is valid for the store that gave it, until the store's next load (one that fails included) or its
    /// end; look the key up again then. A value of eight bytes, to be copied freely. Any other handle is
    /// harmless: one of another store, of a former load, of an unknown key or of none reads as an unknown key
    /// does.
    class Handle {
    public:
        /// Belongs to no key.
        constexpr Handle() = default;

    private:
        friend class iAppConfiguration;
        explicit constexpr Handle(std::uint64_t token) : token_(token) {}

        std::uint64_t token_ = 0; ///< the load that it belongs to, and in the low bits the row
    };

    iAppConfiguration();
    ~iAppConfiguration();
    iAppConfiguration(const iAppConfiguration&) = delete;
    iAppConfiguration& operator=(const iAppConfiguration&) = delete;

    /// The process-wide instance, made at first use and destroyed at process exit. It is not loaded by
    /// itself.
    static iAppConfiguration& instance();

    /// Discards the table, registers the properties with their defaults, and reads the configurations of
    /// all working directories, from the installation to the user.
    /// @return false if `RSR_HOME` or the working directories are unusable; the table then holds the
    /// defaults.
    bool load();
    /// As load(), with the working directories of a project.
    /// @param projectPath full path of the project file.
    bool load(const std::string& projectPath);

    /// Writes what was changed since the load or the last save, in its normal form, into the first working
    /// directory, field by field; a field that says what is inherited leaves the file, as does what the load
    /// found there although it says that. All else in the file stays, whoever wrote it, and so do lock marks;
    /// under one key the later save wins. Not written are what another level locks, single values under a
    /// lock of the first level, and values and lists whose first field is empty. Nothing is written if
    /// nothing changed.
    /// @return false if the directories are unusable or the first one has no configuration. A write that
    ///         fails is told through IOvConfigurationManager::SetErrorHandler and leaves the old file whole;
    ///         lastSaveFailed tells it from one that succeeds.
    bool save();
    /// Whether the last save had something to write and could not, a full disk being in the way, a right that
    /// is missing, or the directory itself. The changes are still here, and the next save tries again. False
    /// before the first save.
    bool lastSaveFailed() const noexcept;

    /// Takes over what other programs have written into the working directories since the load. What is
    /// unsaved here stays, field by field, unless somebody locked it meanwhile; a level that cannot be read
    /// keeps what it said, and so does a property that setPropertyDefaults was called for. The values come
    /// first, then the sinks are told, in table order, of each key whose value in force changed. Handles stay
    /// valid.
    /// @return a result that is not done inside a notification of a sink, and where no load has succeeded.
    RefreshResult refresh();

    /// Gives a field the value that it inherits, and takes it out of the first working directory's
    /// configuration at the next save, whatever that value is, an empty one included. A list is reset as a
    /// whole. The sinks are told before.
    /// @param field index from 0.
    /// @return false, and no change, if there is no such field or it is locked.
    bool reset(const std::string& key, std::size_t field);

    /// Fills the argument, whose name holds the key, with a copy of everything but the kind. Numbers and
    /// colours come back in normal form (six significant digits, lower-case hexadecimal).
    /// @return false, with the argument untouched, if the key is unknown.
    bool getProperty(Property& property) const;
    /// Stores `values` field by field, leaving out locked fields. A different number of values resizes the
    /// property; new fields are unlocked. The argument's `readonly` and `defaults` are not looked at.
    /// @return false if the key is unknown.
    bool setProperty(const Property& property);
    /// Replaces defaults and values at once, whatever the locks. @return false if the key is unknown.
    bool setPropertyDefaults(const std::string& key, const std::vector<std::string>& values);

    /// The number of a flag or number property; 0 if there is none of that key. Allocates nothing.
    float getNumber(std::string_view key) const noexcept;
    /// Changes the cached number and tells the sinks. It does not look at locks; the text follows at the next
    /// read or save. @return false if there is no number of that key.
    bool setNumber(std::string_view key, float value);

    /// The six graphics fields of an object, layer or ICT property. Colours are packed with red in the low
    /// byte. A layer uses colour, fill style and line style; an ICT object has its text colour in the fill
    /// style. Allocates nothing. @return false, with the outputs untouched, if there are none of that key.
    bool getGraphics(std::string_view key, int& visible, int& selectable, int& color, int& fillStyle,
                     int& lineStyle, int& lineThickness) const noexcept;
    /// Changes the six cached fields and tells the sinks of the first. @return false if there are none of
    /// that key.
    bool setGraphics(std::string_view key, int visible, int selectable, int color, int fillStyle,
                     int lineStyle, int lineThickness);

    /// The handle of a key of any kind, valid until the next load; for an unknown key one that never is.
    Handle handleOf(std::string_view key) const noexcept;
    bool isValid(Handle handle) const noexcept { return handle.token_ >> kRowBits == typed_->load; }
    /// As getNumber by key.
    float getNumber(Handle handle) const noexcept {
        return isValid(handle) ? typed_->numbers[handle.token_ & kRowMask] : 0.0F;
    }
    /// As getGraphics by key. @return false, with the output untouched, if there are none.
    bool getGraphics(Handle handle, Graphics& graphics) const noexcept {
        const auto row = handle.token_ & kRowMask;
        if (!isValid(handle) || !typed_->hasGraphics[row])
            return false;
        graphics = typed_->graphics[row];
        return true;
    }

    /// The two packed colours of the ICT object "ICT" + name. @return false if there is none.
    bool getIctColors(std::string_view name, int& color, int& textColor) const;
    bool setIctColors(std::string_view name, int color, int textColor);

    /// A sink may call every operation of the store from inside its notification, these two included; one
    /// added there is told from the next notification on, one removed there is not told any more.
    /// @return false, and no change, if the sink is null or registered already.
    bool addSink(iEventSink* sink);
    /// @return false if the sink is not registered.
    bool removeSink(iEventSink* sink);

    /// The keys in table order; empty before the first load.
    std::vector<std::string> keys() const;
    /// The working directories of the last load or save, the user's first, the installation's last.
    std::vector<std::string> workingDirectories() const;
    /// The working directory whose configuration gave a field its value at the last load, refresh or reset;
    /// empty for the built-in default, for a value that was changed since, and for a field that does not
    /// exist.
    /// @param field index from 0.
    std::string valueDirectory(const std::string& key, std::size_t field) const;
    /// The working directory whose configuration was the first to lock a field; empty if the field is not
    /// locked or does not exist.
    /// @param field index from 0.
    std::string lockingDirectory(const std::string& key, std::size_t field) const;

    /// The administrator's words on the lock of a field, of the level that locked it first; empty if there
    /// are none.
    /// @param field index from 0.
    LockNote lockNote(const std::string& key, std::size_t field) const;

    /// The kind of a key, or 0 if there is no such key.
    static int kindOf(std::string_view key) noexcept;
    /// The names of a kind's fields in order; empty for kinds without named fields.
    static std::vector<std::string> fieldNames(int kind);

    struct Impl;

private:
    /// Of a handle's token, for the row; the rest counts loads.
    static constexpr int kRowBits = 20;
    static constexpr std::uint64_t kRowMask = (std::uint64_t{1} << kRowBits) - 1;

    /// The typed values by row. Laid open so that a read by handle is compiled into the host, which makes
    /// this layout part of the binary interface. A valid handle's row is always less than their count.
    struct TypedValues {
        std::uint64_t load = 0; ///< what valid handles belong to; never 0 in a store
        std::size_t count = 0;
        const float* numbers = nullptr;
        const Graphics* graphics = nullptr;
        const bool* hasGraphics = nullptr;
    };

    friend class ConfigurationReporter;

    std::unique_ptr<Impl> impl_;
    const TypedValues* typed_; ///< a part of it
};

} // namespace Orv
