#pragma once

#include "details/pages/editor/sheetsizes.h"
#include "details/pages/page.h"
#include "orv/metrics.h"

#include <QtCore/QString>

#include <memory>
#include <string>
#include <vector>

class QLabel;
class QLineEdit;

namespace ovsettings {

namespace Ui {
class CNewSheetDialog;
}

/// The page "New Sheets": size and orientation of a new schematic sheet, and how it gets its border.
class CNewSheetDialog : public CPage {
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

    /// True once there is a configuration whose values are shown.
    bool isFilled() const { return appConfig_ && !sizes_.empty(); }
    int customIndex() const { return static_cast<int>(sizes_.size()) - 1; }
    SheetSize& customSize() { return sizes_.back(); }
    Orientation orientation() const;

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

    State state() const;
    void restore(const State& state);
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
    State unchanged_; ///< as last loaded or stored
};

} // namespace ovsettings
