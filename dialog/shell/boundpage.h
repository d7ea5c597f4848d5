#pragma once

#include "dialog/shell/followsconfiguration.h"
#include "dialog/shell/page.h"
#include "dialog/widgets/bindings.h"

#include <optional>

namespace ovsettings {

/// Which lengths outside the limits a page takes as they were stored. One that is typed in is always refused.
enum class TakenAsStored { none, finer, any };

/// How a page refuses a length.
struct LengthRefusal {
    const char* message; ///< with %1 and %2 for the limits; in the context of the page's class
    TakenAsStored taken = TakenAsStored::none;
    std::optional<int> leastDecimals{}; ///< of the lower limit; those of the unit in use if it is not said
    std::optional<int> mostDecimals{};
};

/// A page whose controls show what is stored, and store what they show: all that its form joins to a key.
class BoundPage : public Page, public IFollowsConfiguration {
    Q_OBJECT

public:
    ~BoundPage() override;

    bool OnInitDialog() override;
    bool onApply() override;
    bool onEnter() override;
    bool onLeave() override;
    bool isValid() override;
    bool isModified() const override;
    DroppedEdits followConfiguration() override;

protected:
    BoundPage(QWidget* parent, const PageRow& row);

    /// Binds the controls, unless they are bound. Until then no check refuses anything.
    void bind();
    /// Writes what the controls show.
    void store();

private:
    virtual LengthRefusal lengthRefusal() const = 0;
    bool checkLengths();

    Bindings bindings_;
};

} // namespace ovsettings
