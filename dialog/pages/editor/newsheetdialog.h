#pragma once

#include "dialog/pages/editor/sheetsizes.h"
#include "dialog/shell/followsconfiguration.h"
#include "dialog/shell/page.h"
#include "orv/metrics.h"

#include <QtCore/QString>

#include <memory>
#include <optional>
#include <string>
#include <vector>

class QLabel;
class QLineEdit;

namespace ovsettings {

namespace Ui {
class CNewSheetDialog;
}

/// The page "New Sheets": size and orientation of a new schematic sheet, and how it gets its border.
class CNewSheetDialog : public CPage, public IFollowsConfiguration {
    Q_OBJECT

public:
    explicit CNewSheetDialog(QWidget* parent);
    ~CNewSheetDialog() override;

    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onApply() override;
    bool onEnter() override;
    bool onLeave() override;
    bool isValid() override;
    bool isModified() const override;
    DroppedEdits followConfiguration() override;

private:
    enum class Orientation { landscape, portrait };

    /// What the user sees and may change; lengths in units of 10 nm.
    struct State {
        QString size;
        long width = 0;
        long height = 0;
        Orientation orientation = Orientation::landscape;
        bool addsBorder = false;
        bool enablesBorders = false;
        bool usesFirstBorder = false;

        bool operator==(const State&) const = default;
    };

    struct Stored {
        std::vector<std::string> values;
        std::vector<bool> locks;

        bool operator==(const Stored&) const = default;
    };

    /// What the page writes, and the unit.
    std::vector<Stored> readAll() const;
    /// True once there is a configuration whose values are shown.
    bool isFilled() const { return appConfig_ && !sizes_.empty(); }
    int customIndex() const { return static_cast<int>(sizes_.size()) - 1; }
    SheetSize& customSize() { return sizes_.back(); }
    Orientation orientation() const;

    /// Fills the page anew and puts back what the user has changed and may change still.
    /// @return what he may not.
    DroppedEdits refill();
    void unlock();
    void rebuild();
    void load();
    void loadOrientation();
    void loadSize();
    void loadFlags();
    int indexOfStoredSides() const;
    /// The first field of a key, read as an integer. @param locked set if the field is locked.
    long stored(const char* key, bool& locked) const;
    void lockSides(const char* key, std::size_t field);
    void showUnit();
    void selectSize(int index);
    void showSize(int index);
    void showSides(long width, long height);
    void showOrientation(Orientation orientation);
    void updateFirstBorder();

    long typedLength(const QLineEdit& edit) const;
    void sizeSelected(int index);
    void sideTyped(const QLineEdit& edit, long& side);
    void orientationChosen(Orientation orientation);
    void turnTo(Orientation orientation);

    State state() const;
    /// Puts back what differs in `edited` from `before`, but for what is locked.
    DroppedEdits restoreEdits(const State& edited, const State& before);
    void restoreSize(const State& edited);
    std::optional<Orv::RefreshResult::Field> lockedField(const char* key) const;
    bool checkSides();
    bool checkSide(QLineEdit& edit, const QString& message);

    std::unique_ptr<Ui::CNewSheetDialog> ui_;
    std::vector<SheetSize> sizes_;
    /// What the two edits stand for. A text that the user left alone stands for the length it was shown from.
    long width_ = 0;
    long height_ = 0;
    Orv::Metrics::Unit unit_;
    bool updating_ = false; ///< the page itself changes its controls
    bool firstBorderLocked_ = false;
    // As last loaded or stored.
    State unchanged_;
    std::vector<Stored> stored_;
};

} // namespace ovsettings
