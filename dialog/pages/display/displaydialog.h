#pragma once

#include "dialog/shell/followsconfiguration.h"
#include "dialog/shell/formpage.h"
#include "dialog/shell/unsavededits.h"
#include "dialog/widgets/formkeys.h"

#include <string>
#include <string_view>
#include <vector>

namespace ovsettings {

namespace Ui {
class CDisplayDialog;
}

/// The page "Display": which classes of object the schematic editor shows, and which have tool tips. Nothing
/// on it is disabled for a locked key: the store keeps what is locked.
class CDisplayDialog : public CFormPage<Ui::CDisplayDialog>,
                       public IUnsavedEdits,
                       public IFollowsConfiguration {
    Q_OBJECT

public:
    explicit CDisplayDialog(QWidget* parent);
    ~CDisplayDialog() override;

    bool buildTemplate() override;
    bool OnInitDialog() override;
    bool onApply() override;
    bool hasUnsavedEdits() const override;
    DroppedEdits followConfiguration() override;

    /// The names of properties that have tool tips, as one text and back. A text is split at every comma; the
    /// pieces lose the blanks around them, but for the last one, and empty pieces are dropped.
    static std::string joinProperties(const std::vector<std::string>& properties);
    static std::vector<std::string> splitProperties(std::string_view text);

private:
    /// What the key of each box holds.
    struct Stored {
        std::string text;
        bool locked = false;

        bool operator==(const Stored&) const = default;
    };

    std::vector<Stored> readAll() const;
    void keep();
    void fill();
    void enableNumbers(bool enabled);
    std::vector<bool> marks() const;

    std::vector<KeyedControl> boxes_; ///< in the order in which they are stored
    /// Read as the page is filled; no control shows it.
    std::string tooltipProperties_;
    // As they were when the page was filled, last stored or followed.
    std::vector<bool> kept_; ///< the marks of the boxes
    std::vector<Stored> stored_;
};

} // namespace ovsettings
