#pragma once

#include "dialog/pages/editor/sheetsizes.h"
#include "dialog/shell/followsconfiguration.h"
#include "orv/metrics.h"

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace ovsettings {

/// What the page "New Sheets" shows and stores: the sizes on offer, the one that is selected with its sides,
/// the orientation, and how a sheet gets its border. Lengths are in units of 10 nm. Only load, refresh and
/// store touch the configuration.
class NewSheetModel {
public:
    using Borders = Orv::IBorderSymbols::Table;

    enum class Orientation { landscape, portrait };
    enum class Side { width, height };
    /// What looks locked together.
    enum class Part { size, sides, orientation, addsBorder, enablesBorders, usesFirstBorder };

    struct Lock {
        Part part;
        Orv::RefreshResult::Field field; ///< that locks it
    };

    /// @param borders by name; null if there are none.
    void load(const Orv::iAppConfiguration& appConfig, const Borders* borders);
    bool isLoaded() const { return !sizes_.empty(); }
    /// Loads anew and puts back what was changed since the last load or store, but for what is locked by now.
    /// @return what was not put back.
    DroppedEdits refresh(const Orv::iAppConfiguration& appConfig, const Borders* borders);
    /// Whether the configuration holds something else than at the last load or store.
    bool isOutdated(const Orv::iAppConfiguration& appConfig) const;
    void store(Orv::iAppConfiguration& appConfig);
    /// Whether anything was changed since the last load or store.
    bool isModified() const { return sheet() != unchanged_; }

    const std::vector<SheetSize>& sizes() const { return sizes_; }
    /// In the order in which they are to be shown: of several on one part the last one counts.
    const std::vector<Lock>& locks() const { return locks_; }
    /// The unit in which sides are shown and typed.
    Orv::Metrics::Unit unit() const { return unit_; }

    /// Index of the selected size; -1 if none is.
    int selected() const { return selected_; }
    long width() const { return width_; }
    long height() const { return height_; }
    Orientation orientation() const { return orientation_; }
    bool addsBorder() const { return addsBorder_; }
    bool enablesBorders() const { return enablesBorders_; }
    bool usesFirstBorder() const { return usesFirstBorder_; }
    /// Whether the user may say if the first border is used.
    bool offersFirstBorder() const;

    /// Takes the sides of a size, turned as the orientation says. Anything but an index of a size does
    /// nothing.
    void select(int index);
    /// The user has typed a side. @param width, height what both sides show by now, in the unit.
    void typeSide(Side side, double width, double height);
    /// Swaps the sides if they stand otherwise.
    void choose(Orientation orientation);
    void setAddsBorder(bool on) { addsBorder_ = on; }
    void setEnablesBorders(bool on) { enablesBorders_ = on; }
    void setUsesFirstBorder(bool on) { usesFirstBorder_ = on; }

    /// Whether a side may be stored. Its text decides, so that one below 1 is refused in every unit.
    static bool isFit(const std::string& shownSide);

private:
    /// What the user may change.
    struct Sheet {
        std::string size;
        long width = 0;
        long height = 0;
        Orientation orientation = Orientation::landscape;
        bool addsBorder = false;
        bool enablesBorders = false;
        bool usesFirstBorder = false;

        bool operator==(const Sheet&) const = default;
    };

    struct Stored {
        std::vector<std::string> values;
        std::vector<bool> locks;

        bool operator==(const Stored&) const = default;
    };

    int customIndex() const { return static_cast<int>(sizes_.size()) - 1; }
    static std::vector<Stored> readAll(const Orv::iAppConfiguration& appConfig);
    void readLocks(const Orv::iAppConfiguration& appConfig);
    const Lock* lockOf(std::string_view key) const;
    int indexOfStoredSides(const Orv::iAppConfiguration& appConfig) const;
    void takeSides(int index);
    void storeSides(Orv::iAppConfiguration& appConfig);
    Sheet sheet() const;
    void keep(const Orv::iAppConfiguration& appConfig);
    /// Puts back what differs in `edited` from `before`, but for what is locked.
    DroppedEdits restore(const Sheet& edited, const Sheet& before);
    void restoreSize(const Sheet& edited);

    std::vector<SheetSize> sizes_;
    std::vector<Lock> locks_;
    Orv::Metrics::Unit unit_;
    int selected_ = -1;
    /// What the two texts stand for: one that the user left alone stands for the length that it was shown
    /// from.
    long width_ = 0;
    long height_ = 0;
    Orientation orientation_ = Orientation::landscape;
    bool addsBorder_ = false;
    bool enablesBorders_ = false;
    bool usesFirstBorder_ = false;
    // As last loaded or stored.
    Sheet unchanged_;
    std::vector<Stored> stored_;
};

} // namespace ovsettings
