#include "store/catalogue.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

namespace Orv {

namespace {

using enum iAppConfiguration::Kind;

constexpr auto kShippedRows = std::to_array<CatalogueRow>({
    // Objects.
    {"NET", KindObject, "1, 1, 0x00ff00, 1, 0, 1"},
    {"COMPONENT", KindObject, "1, 1, 0x00ffff, 0, 0, 1"},
    {"ATTRIBUTE", KindObject, "1, 1, 0xffff00, 0, 0, 1"},
    {"LABEL", KindObject, "1, 1, 0xffff00, 0, 0, 1"},
    {"PIN", KindObject, "1, 1, 0xff00ff, 0, 0, 1"},
    {"BOX", KindObject, "1, 1, 0xff00ff, 0, 0, 1"},
    {"LINE", KindObject, "1, 1, 0xff00ff, 0, 0, 1"},
    {"CIRCLE", KindObject, "1, 1, 0xff00ff, 0, 0, 1"},
    {"ARC", KindObject, "1, 1, 0xff00ff, 0, 0, 1"},
    {"TEXT", KindObject, "1, 1, 0xffff00, 0, 0, 1"},
    {"WIRE", KindObject, "1, 1, 0xffff00, 0, 0, 1"},
    {"BUS", KindObject, "1, 1, 0xffff00, 1, 0, 10"},
    // Layers.
    {"SELECTION_LAYER", KindLayer, "0xffffff, 0, 0"},
    {"BORDER_LAYER", KindLayer, "0x00ffff, 0, 0"},
    {"VALUE_LAYER", KindLayer, "0xc0c0c0, 0, 0"},
    {"ANNOTATION_LAYER", KindLayer, "0xffff00, 0, 0"},
    {"HIGHLIGHT_LAYER", KindLayer, "0xff00ff, 1, 0"},
    {"BACKGROUND_LAYER", KindLayer, "0x000000, 0, 0"},
    {"GRID_LAYER", KindLayer, "0xffffff, 0, 0"},
    {"DRAG_LAYER", KindLayer, "0x00FF00, 0, 0"},
    {"UNPLACEDCOMPONENT_LAYER", KindLayer, "0xC0C0C0, 0, 0"},
    // Objects of the interconnectivity table.
    {"ICTBLOCK", KindIctObject, "0xfffbf0, 0x000000"},
    {"ICTBUS", KindIctObject, "0xfffbf0, 0x000000"},
    {"ICTCOMPONENT", KindIctObject, "0xfffbf0, 0x000000"},
    {"ICTDIFFPAIR", KindIctObject, "0xfffbf0, 0x000000"},
    {"ICTEDITCELL", KindIctObject, "0xfffbf0, 0x000000"},
    {"ICTFPGA", KindIctObject, "0xfffbf0, 0x000000"},
    {"ICTFUB", KindIctObject, "0xfffbf0, 0x000000"},
    {"ICTGROUP", KindIctObject, "0xa6caf0, 0x000000"},
    {"ICTHIGHLIGHT_LAYER", KindIctObject, "0xff00ff, 0x000000"},
    {"ICTINVALIDCELL", KindIctObject, "0xb0b0b0, 0x000000"},
    {"ICTNET", KindIctObject, "0xfffbf0, 0x000000"},
    {"ICTNETS", KindIctObject, "0xfffbf0, 0x000000"},
    {"ICTPIN", KindIctObject, "0xfffbf0, 0x000000"},
    {"ICTPORT", KindIctObject, "0xfffbf0, 0x000000"},
    {"ICTSYMBOL", KindIctObject, "0xfffbf0, 0x000000"},
    // General settings.
    {"ADD_PROPERTIES_HINT_TAG", KindFlag, "1"},
    {"ANALOG_SIMULATION_MODE", KindFlag, "1"},
    {"ATTRON", KindFlag, "1"},
    {"AUTO_RIPPER_BUS_SEGMENT", KindFlag, "1"},
    {"AUTOPAN", KindFlag, "1"},
    {"BEGIN_NETS_IN_SPACE", KindFlag, "1"},
    {"BELL", KindFlag, "1"},
    {"BORDERON", KindFlag, "1"},
    {"CHECK_COMP_DATES", KindFlag, "1"},
    {"COARSE_GRID", KindFlag, "1"},
    {"COMPONENT_TOOLTIPS", KindFlag, "1"},
    {"COMPTEXTON", KindFlag, "1"},
    {"CONSTRAINT", KindFlag, "1"},
    {"COPY_CONSTRAINTS_ON_COPY_BLOCK", KindFlag, "1"},
    {"COPY_CONSTRAINTS_OVERWRITES_VALUES", KindFlag, "1"},
    {"DB_ERR_VERBOSE", KindFlag, "1"},
    {"DEFAULT_ZOOM", KindFlag, "1"},
    {"DETAIL", KindFlag, "1"},
    {"DYNAMIC_PANNING", KindFlag, "1"},
    {"DYNAMIC_XY", KindFlag, "1"},
    {"EXCLUDE_GLOBALS_FM_UNIQUE_ON_COPY", KindFlag, "1"},
    {"FUBPINTYPEON", KindFlag, "1"},
    {"GRIDON", KindFlag, "1"},
    {"HATS", KindFlag, "1"},
    {"KEYBINDINGS", KindFlag, "1"},
    {"LABELON", KindFlag, "1"},
    {"OATCHECK", KindFlag, "1"},
    {"OATS", KindFlag, "1"},
    {"PARTIAL_UNLIMITED_TEXT_LENGTH", KindFlag, "1"},
    {"PLACEHOLDER", KindFlag, "1"},
    {"PRINTFORCEBLACK", KindFlag, "1"},
    {"PRINTHIERARCHY", KindFlag, "1"},
    {"RNUMSON", KindFlag, "1"},
    {"SCHEMATIC_TABS", KindFlag, "1"},
    {"SELRIPPERS", KindFlag, "1"},
    {"SELBORDERS", KindFlag, "1"},
    {"SNAPTOPIN", KindFlag, "1"},
    {"SORTON", KindFlag, "1"},
    {"STROKES", KindFlag, "1"},
    {"TEXTON", KindFlag, "1"},
    {"TIPOFTHEDAY", KindFlag, "1"},
    {"UNDO", KindFlag, "1"},
    {"VALUESON", KindFlag, "1"},
    {"XTRAERRS", KindFlag, "1"},
    {"ICT_HIDE_NOTCOMMON_PRP", KindFlag, "0"},
    {"ABSOLUTE_OATS", KindFlag, "0"},
    {"ADD_PROPERTIES_HINT_TAG_TIMER", KindFlag, "0"},
    {"AREA_SELECTION_OVERLAP", KindFlag, "0"},
    {"AUTO_TEXT_ORIEN", KindFlag, "0"},
    {"BIGCROSS", KindFlag, "0"},
    {"BITNUMBERS", KindFlag, "0"},
    {"BUS_MODE", KindFlag, "0"},
    {"CHECK_REUSEBLOCK_DATES", KindFlag, "0"},
    {"DISPLAY_REUSEBLOCK_WORK", KindFlag, "0"},
    {"CONTEXT_WINDOW", KindFlag, "0"},
    {"COPY_CONSTRAINTS_USING_CRM", KindFlag, "0"},
    {"DB_AUTO_BACKUP", KindFlag, "0"},
    {"DBOXON", KindFlag, "0"},
    {"DEF_USESHEET1", KindFlag, "0"},
    {"DEFAULT_VALUE_UPPER", KindFlag, "0"},
    {"DEFSHEET", KindFlag, "0"},
    {"DISPLAY_FULL_SIGNAL_NAME_ON_RIPPER", KindFlag, "0"},
    {"DYNAMIC_PLOTSIZE", KindFlag, "0"},
    {"EURO_ARROWS", KindFlag, "0"},
    {"EURO_DATE", KindFlag, "0"},
    {"LORVIK_ZOOM", KindFlag, "0"},
    {"ORV_DIAGNOSTICS_RUN_ON_CLOSE", KindFlag, "0"},
    {"LABELBRACKETS", KindFlag, "0"},
    {"WIR_CONT_CHAR", KindFlag, "0"},
    {"MIDSTROKE", KindFlag, "0"},
    {"NAMESON", KindFlag, "0"},
    {"NET_TOOLTIPS", KindFlag, "0"},
    {"NON_UNDOABLE_MOVE", KindFlag, "0"},
    {"OATSTOOLS_FILE_BYPASS", KindFlag, "0"},
    {"SARN_ZOOM", KindFlag, "0"},
    {"PIN_TOOLTIPS", KindFlag, "0"},
    {"PINTYPE_ARROWS", KindFlag, "0"},
    {"PNUMSON", KindFlag, "0"},
    {"PROJECT_PLOT_ON_PC", KindFlag, "0"},
    {"SELNAMEON", KindFlag, "0"},
    {"SEPARATE_FLIP_MIRROR", KindFlag, "0"},
    {"UNIQUE_LABEL", KindFlag, "0"},
    {"UNLIMITED_TEXT", KindFlag, "0"},
    {"WIR_FILE_CONTINUATION", KindFlag, "0"},
    {"WIREON", KindFlag, "0"},
    {"PRINTING", KindFlag, "0"},
    {"ADISTANCE_HR", KindNumber, "508000"},
    {"ANNO_SIZE_HR", KindNumber, "381000"},
    {"ATTR_ON_SPLIT", KindNumber, "0"},
    {"AUTO_RIPPER_BUS_SEGMENT_LENGTH_HR", KindNumber, "50800"},
    {"AUTOLOG", KindNumber, "10"},
    {"BLOCKTYPE", KindNumber, "1"},
    {"BOXSIZE_HR", KindNumber, "127000"},
    {"BUBBLESIZE_HR", KindNumber, "127000"},
    {"BUS_DOTSIZE_HR", KindNumber, "304800"},
    {"BUSWIDTH_HR", KindNumber, "101600"},
    {"CROSSCURSOR", KindNumber, "0"},
    {"DEFMETHOD", KindNumber, "1"},
    {"DOTSIZE_HR", KindNumber, "127000"},
    {"DOTSIZE_THREE_SEGMENTS_HR", KindNumber, "0"},
    {"GRID_HR", KindNumber, "254000"},
    {"GRID_HIGHLIGHT_INTERVAL", KindNumber, "0"},
    {"GRID_HIGHLIGHT_MARKS", KindNumber, "0"},
    {"GRID_HIGHLIGHT_MARKS_INTERVAL", KindNumber, "10"},
    {"LABEL_ON_SPLIT", KindNumber, "0"},
    {"LABELTHRESHOLD", KindNumber, "4"},
    {"LONG_LINE_ERRORS", KindNumber, "127"},
    {"MRU_SIZE", KindNumber, "10"},
    {"NET_LENGTH_HR", KindNumber, "1016000"},
    {"NET_SPACING_HR", KindNumber, "254000"},
    {"NEW_ATTR_VIS", KindNumber, "1"},
    {"NO_UNDO_CBA_MOVE", KindNumber, "3000"},
    {"ORIENTATION", KindNumber, "0"},
    {"PRINTLINETHICKNESS", KindNumber, "1"},
    {"PRINTORIENTATION", KindNumber, "1"},
    {"PRINTPAPERSIZE", KindNumber, "0"},
    {"PRINTSCALE", KindNumber, "0"},
    {"PRINTSCALEFACTOR", KindNumber, "1"},
    {"PRINTSCALETYPE", KindNumber, "0"},
    {"PRINTXMARGIN", KindNumber, "0"},
    {"PRINTYMARGIN", KindNumber, "0"},
    {"ROUTE", KindNumber, "2"},
    {"SCOPE", KindNumber, "0"},
    {"SDISTANCE_HR", KindNumber, "254000"},
    {"SHEETSIZE", KindNumber, "1"},
    {"STROKE_DELAY", KindNumber, "100"},
    {"TEXT_THRESHOLD", KindNumber, "3"},
    {"TEXTORIGIN", KindNumber, "3"},
    {"TEXTSIZE_HR", KindNumber, "254000"},
    {"TIPOFTHEDAYFILEPOS", KindNumber, "0"},
    {"UNDO_LEVEL", KindNumber, "1024"},
    {"UNIT", KindText, "in"},
    {"MRU_SCHEMA", KindText, ""},
    {"MRU_SETTINGS", KindText, "Designs"},
    {"PRINTDEVICENAME", KindText, ""},
    {"SCALEFACTOR", KindText, "1.0"},
    {"TIPOFTHEDAYTIMESTAMP", KindText, ""},
    {"LANGUAGE", KindText, "Default"},
    {"ORV_SIMULATOR_EXECUTABLE", KindText, ""},
    {"ORV_ENABLE_EXTERNAL_EDITOR", KindText, ""},
    {"ORV_EXTERNAL_EDITOR_EXECUTABLE", KindText, ""},
    {"ORV_HDL_EXPORT_LANGUAGE", KindText, "0"},
    {"ORV_HDL_EXPORT_FOLDER", KindText, ""},
    {"ICT_HIDDEN_PRPS", KindList, ""},
    {"MRU_PROJECTS", KindList, ""},
    {"PROPERTIES_TOOLTIP", KindList, "REFDES"},
    // Printing colours.
    // The comma without a blank is meant for hosts, which count on fifteen fields: the twelfth one holds two
    // colours.
    {"PRINTINGCOLORS", KindList,
     "0x000000, 0x000000, 0x000000, 0x000000, 0x000000, 0x000000, 0x000000, 0x000000, 0x000000, 0x000000, "
     "0x000000, 0x000000,0x000000, 0xffffff, 0x000000, 0x000000"},
    // Sheet sizes.
    {"A_SIZE_HR", KindSize, "27940000, 21590000"},
    {"B_SIZE_HR", KindSize, "43180000, 27940000"},
    {"C_SIZE_HR", KindSize, "55880000, 43180000"},
    {"D_SIZE_HR", KindSize, "86360000, 55880000"},
    {"E_SIZE_HR", KindSize, "111760000, 86360000"},
    {"A4_SIZE_HR", KindSize, "29699999.02, 20999999.91"},
    {"A3_SIZE_HR", KindSize, "41999999.82, 29699999.02"},
    {"A2_SIZE_HR", KindSize, "59400000.58, 41999999.82"},
    {"A1_SIZE_HR", KindSize, "84099999.44, 59400000.58"},
    {"A0_SIZE_HR", KindSize, "118900000.96, 84099999.44"},
    {"Z_SIZE_HR", KindSize, "2540000, 2540000"},
    // Fonts.
    {"FIXED", KindFont, "0, 0, 0, 0, 0, 0, 0, 0"},
    {"ROMAN", KindFont, "0, 0, 0, 0, 0, 0, 0, 0"},
    {"ROMANBOLD", KindFont, "0, 0, 0, 0, 0, 0, 0, 0"},
    {"ROMANITALIC", KindFont, "0, 0, 0, 0, 0, 0, 0, 0"},
    {"ROMANBOLDITALIC", KindFont, "0, 0, 0, 0, 0, 0, 0, 0"},
    {"SANSSERIF", KindFont, "0, 0, 0, 0, 0, 0, 0, 0"},
    {"SCRIPT", KindFont, "0, 0, 0, 0, 0, 0, 0, 0"},
    {"SANSSERIFBOLD", KindFont, "0, 0, 0, 0, 0, 0, 0, 0"},
    {"SCRIPTBOLD", KindFont, "0, 0, 0, 0, 0, 0, 0, 0"},
    {"GOTHIC", KindFont, "0, 0, 0, 0, 0, 0, 0, 0"},
    {"OLDENGLISH", KindFont, "0, 0, 0, 0, 0, 0, 0, 0"},
    {"KANJI", KindFont, "0, 0, 0, 0, 0, 0, 0, 0"},
    {"PLOT", KindFont, "0, 0, 0, 0, 0, 0, 0, 0"},
    // Palettes.
    {"SCREEN", KindList,
     "0x000000, 0x800000, 0x008000, 0x808000, 0x80, 0x800080, 0x8080, 0xc0c0c0, 0x808080, 0xff0000, 0xff00, "
     "0xffff00, 0xff, 0xff00ff, 0xffff, 0xffffff"},
    {"PRINTER", KindList,
     "0x000000, 0x800000, 0x8000, 0x808000, 0x80, 0x800080, 0x8080, 0xc0c0c0, 0x808080, 0xff0000, 0xa00000, "
     "0xffff00, 0xff, 0xff00ff, 0x400040, 0x000000"},
    // Interconnect editor.
    {"CHANGE_TO_ALLOW_MULTIPLE_TYPES", KindFlag, "1"},
    {"ICE_COMPONENTS_IN_COLUMNS", KindFlag, "1"},
    {"ICE_AUTOFIT", KindFlag, "1"},
    {"ICE_CELLS_SHOW_NAME", KindFlag, "1"},
    {"ICE_PINSDROPDOWNLIST_SHOW_NAME", KindFlag, "1"},
    {"ICE_PINSDROPDOWNLIST_SHOW_DIRECTION", KindFlag, "1"},
    {"AUTO_CONNECT_NEW_TAP", KindFlag, "1"},
    {"ICE_CELLS_SHOW_DIRECTION", KindFlag, "0"},
    {"ICE_CELLS_SHOW_PIN_NUMBER", KindFlag, "0"},
    {"ICE_PINSDROPDOWNLIST_SHOW_PIN_NUMBER", KindFlag, "0"},
    {"ICE_SLICEANDDICE_NETS_SHOW_MODE", KindNumber, "0"},
    {"ICE_SYMBOL_FORMAT", KindText, "$(Name)$(Symbol)"},
    // Navigator.
    {"NAV_DISPLAY_SHEETS", KindFlag, "1"},
    {"NAV_NET_DISPLAY", KindFlag, "1"},
    {"NAV_FLAT_VIEW", KindFlag, "0"},
    {"NAV_BLOCK_FILTER_USE_REGEXP", KindFlag, "0"},
    {"NAV_BLOCK_SORT_DESCENDING", KindFlag, "0"},
    {"NAV_FUNCTIONBLOCK_FILTER_USE_REGEXP", KindFlag, "0"},
    {"NAV_FUNCTIONBLOCK_SORT_DESCENDING", KindFlag, "0"},
    {"NAV_COMP_FILTER_USE_REGEXP", KindFlag, "0"},
    {"NAV_COMP_SORT_DESCENDING", KindFlag, "0"},
    {"NAV_NET_FILTER_USE_REGEXP", KindFlag, "0"},
    {"NAV_NET_SORT_DESCENDING", KindFlag, "0"},
    {"NAV_BLOCK_SORT_ORDER_BY", KindNumber, "0"},
    {"NAV_FUNCTIONBLOCK_SORT_ORDER_BY", KindNumber, "0"},
    {"NAV_COMP_DISPLAY_MODE", KindNumber, "0"},
    {"NAV_COMP_SORT_ORDER_BY", KindNumber, "0"},
    {"NAV_NET_SORT_ORDER_BY", KindNumber, "0"},
    {"NAV_BLOCK_LABEL_FORMAT", KindText, "$(Name)"},
    {"NAV_BLOCK_INFOTIP_FORMAT", KindText, "$(View): $(Name)"},
    {"NAV_FUNCTIONBLOCK_LABEL_FORMAT", KindText, "$(Name)"},
    {"NAV_FUNCTIONBLOCK_INFOTIP_FORMAT", KindText, "$(View): $(Name)"},
    {"NAV_COMP_LABEL_FORMAT", KindText, "$(Name)"},
    {"NAV_COMP_INFOTIP_FORMAT", KindText, "$(Name) ($(Symbol))"},
    {"NAV_NET_LABEL_FORMAT", KindText, "$(Name)"},
    {"NAV_NET_INFOTIP_FORMAT", KindText, "Net: $(Name)"},
    {"NAV_BUS_LABEL_FORMAT", KindText, "$(Name)"},
    {"NAV_BUS_INFOTIP_FORMAT", KindText, "Bus: $(Name)"},
    {"NAV_BLOCK_FILTER_PROPERTIES", KindList, "no rules"},
    {"NAV_FUNCTIONBLOCK_FILTER_PROPERTIES", KindList, "no rules"},
    {"NAV_COMP_FILTER_PROPERTIES", KindList, "no rules"},
    {"NAV_NET_FILTER_PROPERTIES", KindList, "no rules"},
    // Cross-probing.
    {"XPROB_HLU_ENABLE", KindFlag, "1"},
    {"XPROB_HLU_LIMITOPEN", KindFlag, "1"},
    {"XPROB_SEL_LIMITOPEN", KindFlag, "0"},
    {"XPROB_SEL_ZOOMFIT", KindFlag, "0"},
});

/// Settings that nothing uses, of every kind in turn: a build that has some shows that there is room.
constexpr std::size_t kSpares = OV_SPARE_SETTINGS;
constexpr std::size_t kNameSize = 9;

constexpr auto kSpareNames = [] {
    std::array<std::array<char, kNameSize>, kSpares> names{};
    for (std::size_t i = 0; i < kSpares; ++i) {
        std::ranges::copy(std::string_view("SPARE_"), names[i].begin());
        for (std::size_t digit = kNameSize, rest = i; digit-- > kNameSize - 3; rest /= 10)
            names[i][digit] = static_cast<char>('0' + rest % 10);
    }
    return names;
}();

constexpr auto kRows = [] {
    std::array<CatalogueRow, kShippedRows.size() + kSpares> rows{};
    std::ranges::copy(kShippedRows, rows.begin());
    for (std::size_t i = 0; i < kSpares; ++i) {
        auto& row = rows[kShippedRows.size() + i];
        row = kShippedRows[i * 7 % kShippedRows.size()];
        row.key = std::string_view(kSpareNames[i].data(), kNameSize);
    }
    return rows;
}();

/// Eight bytes as one number. Written out so that it is one load at run time and still fit for a constant.
constexpr std::uint64_t eightBytes(const char* text) noexcept {
    const auto byte = [text](int i) {
        return std::uint64_t{static_cast<unsigned char>(text[i])} << 8 * i;
    };
    return byte(0) | byte(1) | byte(2) | byte(3) | byte(4) | byte(5) | byte(6) | byte(7);
}

constexpr std::uint64_t fourBytes(const char* text) noexcept {
    const auto byte = [text](int i) {
        return std::uint64_t{static_cast<unsigned char>(text[i])} << 8 * i;
    };
    return byte(0) | byte(1) | byte(2) | byte(3);
}

/// Hashes a key's length, its first word and its last; they overlap in a short key. No two keys agree in all
/// three, so the bytes between need not be looked at.
constexpr std::uint64_t hashOf(std::string_view key) noexcept {
    std::uint64_t head = 0;
    std::uint64_t tail = 0;
    if (key.size() >= 8) {
        head = eightBytes(key.data());
        tail = eightBytes(key.data() + key.size() - 8);
    } else if (key.size() >= 4) {
        head = fourBytes(key.data());
        tail = fourBytes(key.data() + key.size() - 4);
    } else {
        for (const char c : key)
            head = head << 8 | static_cast<unsigned char>(c);
    }
    constexpr std::uint64_t kOdd = 0x9e3779b97f4a7c15U;
    const std::uint64_t mixed = (head + key.size()) * kOdd ^ tail;
    return (mixed ^ mixed >> 32) * kOdd;
}

/// A hash table with open addressing, four slots a key: each slot holds a row's number or nothing.
using Slot = std::uint16_t;
constexpr int kSlotBits = std::bit_width(kRows.size() * 4 - 1);
constexpr std::size_t kSlots = std::size_t{1} << kSlotBits;
constexpr Slot kFree = 0xffff;
static_assert(kRows.size() <= kFree);

constexpr std::size_t firstSlot(std::string_view key) noexcept {
    return hashOf(key) >> (64 - kSlotBits);
}
constexpr std::size_t nextSlot(std::size_t slot) noexcept {
    return (slot + 1) % kSlots;
}

constexpr auto kIndex = [] {
    std::array<Slot, kSlots> index{};
    index.fill(kFree);
    for (std::size_t row = 0; row < kRows.size(); ++row) {
        auto slot = firstSlot(kRows[row].key);
        while (index[slot] != kFree)
            slot = nextSlot(slot);
        index[slot] = static_cast<Slot>(row);
    }
    return index;
}();

constexpr std::optional<std::size_t> lookUp(std::string_view key) noexcept {
    for (auto slot = firstSlot(key); kIndex[slot] != kFree; slot = nextSlot(slot)) {
        const std::size_t row = kIndex[slot];
        if (kRows[row].key == key)
            return row;
    }
    return std::nullopt;
}

constexpr bool everyKeyFindsItsOwnRow() {
    for (std::size_t row = 0; row < kRows.size(); ++row) {
        if (lookUp(kRows[row].key) != row)
            return false;
    }
    return true;
}
static_assert(everyKeyFindsItsOwnRow(), "a key stands twice in the table");

constexpr auto countOf(iAppConfiguration::Kind kind) {
    return std::ranges::count(kShippedRows, kind, &CatalogueRow::kind);
}
static_assert(countOf(KindFlag) == 111 && countOf(KindNumber) == 51 && countOf(KindLayer) == 9);
static_assert(countOf(KindObject) == 12 && countOf(KindList) == 10 && countOf(KindText) == 23);
static_assert(countOf(KindSize) == 11 && countOf(KindFont) == 13 && countOf(KindIctObject) == 15);

} // namespace

std::span<const CatalogueRow> catalogue() noexcept {
    return kRows;
}

std::optional<std::size_t> findRow(std::string_view key) noexcept {
    return lookUp(key);
}

} // namespace Orv
