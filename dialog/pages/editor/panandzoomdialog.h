#pragma once

#include "dialog/shell/followsconfiguration.h"
#include "dialog/shell/formpage.h"
#include "dialog/widgets/formkeys.h"

#include <optional>
#include <string>
#include <vector>

class QRadioButton;

namespace ovsettings {

namespace Ui {
class CPanAndZoomDialog;
}

/// The page "Strokes, Pan and Zoom": in whose manner the schematic editor pans and zooms, and which mouse
/// button draws strokes.
class CPanAndZoomDialog : public CFormPage<Ui::CPanAndZoomDialog>, public IFollowsConfiguration {
    Q_OBJECT

public:
    explicit CPanAndZoomDialog(QWidget* parent);
    ~CPanAndZoomDialog() override;

    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onApply() override;
    bool isModified() const override;
    DroppedEdits followConfiguration() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Flag {
        std::string key;
        bool on;
        bool operator==(const Flag&) const = default;
    };
    using Flags = std::vector<Flag>;
    struct Stored {
        std::string key;
        std::string text;
        bool locked = false;
        bool operator==(const Stored&) const = default;
    };

    std::vector<Stored> readAll() const;
    std::string stored(const char* key) const;
    bool isLocked(const std::string& key) const;
    /// The keys of a choice that the user has given another value.
    std::vector<std::string> editedKeys(const Flags& choice) const;
    void showAnew();
    void fill();
    /// Checks the button that the user had checked, unless a key of his edit is locked by now.
    void keepEdit(QRadioButton* checked, const std::vector<std::string>& editedKeys, DroppedEdits& dropped);
    void showLocks();
    void showZoom();
    void showStrokes();
    /// The middle button belongs to the zoom style "SARN": strokes are turned back to the right one.
    void keepMiddleButtonFree();

    /// What a store writes, in this order; a key that is not in it is left alone.
    Flags zoomFlags() const;
    Flags strokeFlags() const;
    Flags allFlags() const;
    void store(const Flags& flags);

    std::vector<KeyedControl> zoomButtons_; ///< in the order in which their keys are written
    std::vector<KeyedControl> strokeButtons_;
    std::optional<Flags> unchanged_; ///< allFlags() for what is stored; nothing before the fill
    std::vector<Stored> stored_;     ///< as it was read last
};

} // namespace ovsettings
