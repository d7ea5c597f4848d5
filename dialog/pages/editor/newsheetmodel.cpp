#include "dialog/pages/editor/newsheetmodel.h"

#include "store/appcfg.h"
#include "store/numbers.h"
#include "store/unitglue.h"

#include <algorithm>
#include <utility>

namespace ovsettings {

namespace {

constexpr const char* kSizeKey = "SHEETSIZE";
constexpr const char* kOrientationKey = "ORIENTATION";
constexpr const char* kAddBorderKey = "DEFSHEET";
constexpr const char* kEnableBordersKey = "DEFMETHOD";
constexpr const char* kFirstBorderKey = "DEF_USESHEET1";

constexpr long kPortrait = 1;
constexpr int kShortestSide = 1;
constexpr int kLongestSide = 100000000;

/// Which keys lock what. A key of several fields does so with each of them.
constexpr struct {
    NewSheetModel::Part part;
    const char* key;
} kLocks[] = {
    {NewSheetModel::Part::sides, kCustomSizeKey},
    {NewSheetModel::Part::orientation, kOrientationKey},
    {NewSheetModel::Part::size, kSizeKey},
    {NewSheetModel::Part::sides, kSizeKey},
    {NewSheetModel::Part::enablesBorders, kEnableBordersKey},
    {NewSheetModel::Part::addsBorder, kAddBorderKey},
    {NewSheetModel::Part::usesFirstBorder, kEnableBordersKey},
    {NewSheetModel::Part::usesFirstBorder, kAddBorderKey},
    {NewSheetModel::Part::usesFirstBorder, kFirstBorderKey},
};

long number(const Orv::iAppConfiguration& appConfig, const char* key) {
    std::string text;
    Orv::getValue(appConfig, key, text);
    return Orv::longFromText(text);
}

} // namespace

void NewSheetModel::load(const Orv::iAppConfiguration& appConfig, const Borders* borders) {
    unit_ = Orv::getConfiguredUnit(appConfig);
    sizes_ = sheetSizes(appConfig, borders);
    readLocks(appConfig);
    orientation_ =
        number(appConfig, kOrientationKey) == kPortrait ? Orientation::portrait : Orientation::landscape;
    const long size = number(appConfig, kSizeKey);
    selected_ = -1;
    if (size == kFirstBorder)
        selected_ = indexOfStoredSides(appConfig);
    else if (size >= 0 && size <= customIndex())
        selected_ = static_cast<int>(size);
    // An index that is none selects nothing; its sides are those that a custom size would have.
    takeSides(selected_ < 0 ? customIndex() : selected_);
    enablesBorders_ = number(appConfig, kEnableBordersKey) == 1;
    addsBorder_ = number(appConfig, kAddBorderKey) == 1;
    usesFirstBorder_ = number(appConfig, kFirstBorderKey) == 1;
    keep(appConfig);
}

DroppedEdits NewSheetModel::refresh(const Orv::iAppConfiguration& appConfig, const Borders* borders) {
    const Sheet shown = sheet();
    const Sheet before = unchanged_;
    const Orv::Metrics::Unit unit = unit_;
    load(appConfig, borders);
    DroppedEdits dropped = restore(shown, before);
    // In another unit a listed size has other sides: those of borders are rounded.
    if (unit != unit_ && selected_ >= 0 && selected_ != customIndex())
        takeSides(selected_);
    return dropped;
}

bool NewSheetModel::isOutdated(const Orv::iAppConfiguration& appConfig) const {
    return readAll(appConfig) != stored_;
}

void NewSheetModel::store(Orv::iAppConfiguration& appConfig) {
    storeSides(appConfig);
    // A stored size that names none stays as it is until the user chooses one, so that looking at the page
    // gives his sheets no size that he never chose.
    if (selected_ >= 0)
        Orv::setValue(appConfig, kSizeKey, Orv::integerToText(std::min(selected_, kFirstBorder)));
    Orv::setValue(appConfig, kOrientationKey, Orv::flagText(orientation_ == Orientation::portrait));
    Orv::setValue(appConfig, kAddBorderKey, Orv::flagText(addsBorder_));
    Orv::setValue(appConfig, kEnableBordersKey, Orv::flagText(enablesBorders_));
    Orv::setValue(appConfig, kFirstBorderKey, Orv::flagText(enablesBorders_ && usesFirstBorder_));
    keep(appConfig);
}

bool NewSheetModel::offersFirstBorder() const {
    return enablesBorders_ && std::ranges::find(locks_, Part::usesFirstBorder, &Lock::part) == locks_.end();
}

void NewSheetModel::select(int index) {
    if (index < 0 || index > customIndex())
        return;
    selected_ = index;
    takeSides(index);
}

/// The size is looked up by the lengths that the two texts give. So a metric size, whose stored sides are no
/// whole numbers of the unit, is not found by its rounded text and becomes a custom one.
void NewSheetModel::typeSide(Side side, double shownWidth, double shownHeight) {
    const long width = Orv::fromDisplay(shownWidth, unit_);
    const long height = Orv::fromDisplay(shownHeight, unit_);
    if (side == Side::width)
        width_ = width;
    else
        height_ = height;
    const auto named =
        std::ranges::find_if(sizes_, [&](const SheetSize& size) { return size.hasSides(width, height); });
    selected_ = std::min(static_cast<int>(named - sizes_.begin()), customIndex());
    orientation_ = height <= width ? Orientation::landscape : Orientation::portrait;
}

void NewSheetModel::choose(Orientation orientation) {
    orientation_ = orientation;
    const bool turned = orientation == Orientation::landscape ? height_ > width_ : height_ < width_;
    if (turned)
        std::swap(width_, height_);
}

bool NewSheetModel::isFit(const std::string& shownSide) {
    const int shown = Orv::integerFromText(shownSide);
    return shown >= kShortestSide && shown <= kLongestSide;
}

std::vector<NewSheetModel::Stored> NewSheetModel::readAll(const Orv::iAppConfiguration& appConfig) {
    std::vector<Stored> all;
    for (const char* key : {kSizeKey, kCustomSizeKey, kOrientationKey, kAddBorderKey, kEnableBordersKey,
                            kFirstBorderKey, Orv::Metrics::UnitTraits::GetUnitCfgKey()}) {
        Stored& stored = all.emplace_back();
        Orv::getValues(appConfig, key, stored.values, stored.locks);
    }
    return all;
}

void NewSheetModel::readLocks(const Orv::iAppConfiguration& appConfig) {
    locks_.clear();
    for (const auto& [part, key] : kLocks) {
        Stored stored;
        Orv::getValues(appConfig, key, stored.values, stored.locks);
        if (const auto locked = std::ranges::find(stored.locks, true); locked != stored.locks.end())
            locks_.push_back({part, {key, static_cast<std::size_t>(locked - stored.locks.begin())}});
    }
}

const NewSheetModel::Lock* NewSheetModel::lockOf(std::string_view key) const {
    const auto lock = std::ranges::find(locks_, key, [](const Lock& lock) { return lock.field.key; });
    return lock == locks_.end() ? nullptr : &*lock;
}

/// A border's size is known again by its text; where no border has it, it is a custom one.
int NewSheetModel::indexOfStoredSides(const Orv::iAppConfiguration& appConfig) const {
    std::vector<std::string> sides;
    Orv::getValues(appConfig, kCustomSizeKey, sides);
    int index = kFirstBorder;
    while (index < customIndex() &&
           !std::ranges::equal(sizes_[static_cast<std::size_t>(index)].storedSides, sides))
        ++index;
    return index;
}

/// A custom size is shown as it is stored, whatever the orientation.
void NewSheetModel::takeSides(int index) {
    const SheetSize& size = sizes_[static_cast<std::size_t>(index)];
    width_ = size.first;
    height_ = size.second;
    if (orientation_ == Orientation::portrait && index != customIndex())
        std::swap(width_, height_);
}

void NewSheetModel::storeSides(Orv::iAppConfiguration& appConfig) {
    if (selected_ == customIndex()) {
        // The lengths behind the texts: what the user left alone is not rounded to what was shown of it.
        sizes_.back().first = width_;
        sizes_.back().second = height_;
        Orv::setValues(appConfig, kCustomSizeKey, {Orv::lengthToText(width_), Orv::lengthToText(height_)});
    } else if (selected_ >= kFirstBorder) {
        const auto& sides = sizes_[static_cast<std::size_t>(selected_)].storedSides;
        Orv::setValues(appConfig, kCustomSizeKey, {sides.begin(), sides.end()});
    }
}

NewSheetModel::Sheet NewSheetModel::sheet() const {
    return {selected_ < 0 ? std::string() : sizes_[static_cast<std::size_t>(selected_)].label,
            width_,
            height_,
            orientation_,
            addsBorder_,
            enablesBorders_,
            usesFirstBorder_};
}

void NewSheetModel::keep(const Orv::iAppConfiguration& appConfig) {
    unchanged_ = sheet();
    stored_ = readAll(appConfig);
}

DroppedEdits NewSheetModel::restore(const Sheet& edited, const Sheet& before) {
    DroppedEdits dropped;
    const auto isKept = [&](bool differs, std::initializer_list<const char*> keys) {
        if (!differs)
            return false;
        for (const char* key : keys) {
            if (const Lock* lock = lockOf(key)) {
                dropped.push_back(lock->field);
                return false;
            }
        }
        return true;
    };
    if (isKept(edited.orientation != before.orientation, {kOrientationKey}))
        choose(edited.orientation);
    const bool isOtherSize = edited.size != before.size || std::minmax(edited.width, edited.height) !=
                                                               std::minmax(before.width, before.height);
    const SheetSize& custom = sizes_.back();
    const bool isTyped = edited.size == custom.label && !custom.hasSides(edited.width, edited.height);
    if (isTyped ? isKept(isOtherSize, {kSizeKey, kCustomSizeKey}) : isKept(isOtherSize, {kSizeKey}))
        restoreSize(edited);
    if (isKept(edited.addsBorder != before.addsBorder, {kAddBorderKey}))
        addsBorder_ = edited.addsBorder;
    if (isKept(edited.enablesBorders != before.enablesBorders, {kEnableBordersKey}))
        enablesBorders_ = edited.enablesBorders;
    if (isKept(edited.usesFirstBorder != before.usesFirstBorder,
               {kEnableBordersKey, kAddBorderKey, kFirstBorderKey}))
        usesFirstBorder_ = edited.usesFirstBorder;
    return dropped;
}

void NewSheetModel::restoreSize(const Sheet& edited) {
    const auto found = std::ranges::find(sizes_, edited.size, &SheetSize::label);
    const bool isListed = found != sizes_.end();
    if (isListed)
        selected_ = static_cast<int>(found - sizes_.begin());
    else // a border that has gone leaves its size behind, as a custom one
        selected_ = edited.size.empty() ? -1 : customIndex();
    if (isListed && selected_ != customIndex()) {
        takeSides(selected_);
    } else {
        width_ = edited.width;
        height_ = edited.height;
    }
}

} // namespace ovsettings
