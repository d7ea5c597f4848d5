#pragma once

#include "ovsettings/export.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Orv {

class iAppConfiguration;

/// How an object is drawn. `fillStyle` and `lineStyle` share one word, from its low bits up; a read leaves
/// the word's other bits as they were.
struct OVSETTINGS_API ObjectAttributes {
    std::string name; ///< the key
    std::uint8_t visible = 0;
    std::uint8_t selectable = 0;
    std::int32_t color = 0; ///< packed, red in the low byte
    std::uint32_t fillStyle : 5 = 0;
    std::uint32_t lineStyle : 3 = 0;
    std::uint32_t otherBits : 24 = 0; ///< the host's
    std::int32_t thickness = 0;
};

struct OVSETTINGS_API LayerAttributes {
    std::int32_t color = 0; ///< packed, red in the low byte
    std::uint32_t fillStyle : 5 = 0;
    std::uint32_t lineStyle : 3 = 0;
    std::uint32_t otherBits : 24 = 0; ///< the host's
};

/// What a defaults file says of one object.
struct OVSETTINGS_API ObjectDefault {
    int color = 0; ///< number of a palette's entry, 0 to 15; from a file any number that stands there
    std::uint8_t packed = 0; ///< the fill style in the low five bits, the line style above

    bool operator==(const ObjectDefault&) const = default;
};

/// Access to a configuration for code that thinks in numbers of objects, and the rule by which an object gets
/// its colour in print.
///
/// Objects are numbered: 0 to 10 are LINE, BOX, TEXT, CIRCLE, ARC, NET, ATTRIBUTE, COMPONENT, LABEL, PIN and
/// WIRE; 11 to 16, and 1036 to 1041 as well, are the layers ANNOTATION_LAYER, SELECTION_LAYER,
/// BACKGROUND_LAYER, VALUE_LAYER, BORDER_LAYER and HIGHLIGHT_LAYER. Sheets are numbered from 0: A to E, A4 to
/// A0, and the user's own. Every operation by an unknown number returns false.
///
/// Single-threaded, as the configuration is. Nothing here throws on bad input.
class OVSETTINGS_API CPrintingAccess {
public:
    using ObjectDefaults = std::map<std::string, ObjectDefault, std::less<>>;

    /// The process-wide one, over the process-wide configuration; made at first use.
    static CPrintingAccess& instance();

    /// Over any other configuration, which is not owned and has to outlive this object.
    explicit CPrintingAccess(iAppConfiguration& appConfig);

    /// The key of an object's or a sheet's number; empty for an unknown number.
    static std::string_view objectKey(int number) noexcept;
    static std::string_view sheetKey(int number) noexcept;

    /// The first field of a key; 0, false or empty for an unknown key and for one without fields. A number
    /// has six significant digits and may be spelled with an exponent, so a length is read with getFloat.
    float getFloat(std::string_view key) const;
    int getInt(std::string_view key) const;
    bool getFlag(std::string_view key) const; ///< whether the field is other than "0"
    std::string getString(std::string_view key) const;
    /// The lock of the first field, and of all of them.
    bool isReadOnly(std::string_view key) const;
    std::vector<std::uint8_t> getReadOnlyFlags(std::string_view key) const;
    /// In units of 10 nm, whatever the user's unit is. @return false, and 0 twice, if there are no two
    /// fields.
    bool getSize(std::string_view key, double& width, double& height) const;
    bool getSize(int sheet, double& width, double& height) const;

    /// Replaces all fields of a key by this one. A first field that is locked keeps its value; fields behind
    /// it go, with their locks. @return false, and no change, if the key is unknown or the number not finite.
    bool setFloat(std::string_view key, float value);
    bool setInt(std::string_view key, int value);
    bool setFlag(std::string_view key, bool value);
    bool setString(std::string_view key, std::string_view value);
    /// Likewise, by these two.
    bool setSize(std::string_view key, double width, double height);
    bool setSize(int sheet, double width, double height);

    /// On screen. @return false if the configuration has no graphics of that key; a record is then left as it
    /// was but for its name.
    bool getLayer(std::string_view key, LayerAttributes& attributes) const;
    bool getLayer(int number, LayerAttributes& attributes) const;
    bool getObject(std::string_view key, ObjectAttributes& attributes) const;
    /// While the objects are held, as they were in print when they began to be; a number beyond 10 then gives
    /// an empty record, and false.
    bool getObject(int number, ObjectAttributes& attributes) const;

    /// Changes what getLayer and getObject read, locks or not. What a layer has beyond its three attributes
    /// stays. @return false if the configuration has no graphics of that key.
    bool setLayer(std::string_view key, const LayerAttributes& attributes);
    bool setLayer(int number, const LayerAttributes& attributes);
    bool setObject(std::string_view key, const ObjectAttributes& attributes);
    /// While the objects are held, a changed object is held as it is from now on.
    bool setObject(int number, const ObjectAttributes& attributes);

    /// In print. While PRINTING is 1, the colour is black if PRINTFORCEBLACK is set, and otherwise that of
    /// the slot in PRINTINGCOLORS that has the key as its word; while it is not, the colour on screen. Some
    /// words are no keys: the slots PROPERTY, ANNOTATION, SELECTION, BACKGROUND (white, where all else is
    /// black), VALUE, BORDER and HIGHLIGHT are found by these words only, and ATTRIBUTE and the layers have
    /// the slot of LINE.
    /// @return false if the configuration has no graphics of that key; the colour is given all the same.
    bool getPrintObject(std::string_view key, ObjectAttributes& attributes) const;
    bool getPrintObject(int number, ObjectAttributes& attributes) const;

    /// Counts up and down. As long as the count is not 0, objects are read by number from what getPrintObject
    /// gave when the count left 0 upwards: one look for a whole drawing. The caller balances the count.
    void holdObjects(bool hold);

    /// Reads how objects look by default: ten lines, one an object, that begin with its key and go on with
    /// the number of a palette's entry, the fill style and the line style. A line counts again that names an
    /// object again; what follows the tenth is not read. Lines of other words are passed over; a number that
    /// is missing stays as the product ships it. The file that was loaded last is not read again.
    /// @return false, with everything as it was, if the file cannot be read or has fewer lines.
    bool loadDefaults(const std::string& path);
    const ObjectDefaults& objectDefaults() const { return defaults_; }
    /// Whether they differ from those the product ships with.
    bool isDefaultsChanged() const;

private:
    static constexpr int kHeldObjects = 11;

    void refreshHeld(int number);

    iAppConfiguration* appConfig_;
    std::string defaultsPath_;
    ObjectDefaults defaults_;
    int holds_ = 0;
    struct Held {
        ObjectAttributes attributes;
        bool isKnown = false;
    };
    std::vector<Held> held_;
};

} // namespace Orv
