#pragma once

#include "details/pages/page.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace ovsettings {

namespace Ui {
class CPanAndZoomDialog;
}

/// The page "Strokes, Pan and Zoom": in whose manner the schematic editor pans and zooms, and which mouse
/// button draws strokes.
class CPanAndZoomDialog : public CPage {
    Q_OBJECT

public:
    explicit CPanAndZoomDialog(QWidget* parent);
    ~CPanAndZoomDialog() override;

    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onApply() override;
    bool isModified() const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Flag {
        std::string key;
        bool on;
        bool operator==(const Flag&) const = default;
    };
    using Flags = std::vector<Flag>;

    std::string stored(const char* key) const;
    bool isLocked(const std::string& key) const;
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

    std::unique_ptr<Ui::CPanAndZoomDialog> ui_;
    std::optional<Flags> unchanged_; ///< allFlags() after the last fill or store; nothing before the fill
};

} // namespace ovsettings
