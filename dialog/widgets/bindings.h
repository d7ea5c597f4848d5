#pragma once

#include "orv/appconfiguration.h"
#include "orv/metrics.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QRadioButton;
class QWidget;

namespace ovsettings {

class CDecimalSpinCtrl;

/// Joins one control to one key of the application configuration: shows the value, disables the control where
/// the key is locked, says whether the user changed it, and writes it back. The control must outlive the
/// calls.
class Binding {
public:
    explicit Binding(std::string key);
    virtual ~Binding() = default;
    Binding(const Binding&) = delete;
    Binding& operator=(const Binding&) = delete;

    const std::string& key() const { return key_; }

    void show(const Orv::iAppConfiguration& appConfig);
    /// Writes the key, a locked one too: the store keeps what is locked, and tells its sinks.
    void store(Orv::iAppConfiguration& appConfig);
    /// Shows what the key holds by now, if that or its lock has changed since the last show, store or follow.
    /// An edit stays, unless the key was locked meanwhile.
    /// @return true if an edit was given up.
    bool follow(const Orv::iAppConfiguration& appConfig);
    /// True if the control holds another value than after the last show or store. A stored text in an odd
    /// form, which a store would bring into its normal form, is no change. A locked key never changes.
    bool isModified() const;
    /// Shows the same value in the unit in use, if that has changed; an unsaved edit survives.
    virtual void followUnit(const Orv::iAppConfiguration&) {}

private:
    struct Stored {
        std::string text;
        bool locked = false;

        bool operator==(const Stored&) const = default;
    };

    Stored read(const Orv::iAppConfiguration& appConfig) const;
    virtual void showText(const Orv::iAppConfiguration& appConfig, const std::string& text) = 0;
    /// What looks locked where the key is.
    virtual std::vector<QWidget*> controls() const = 0;
    /// What text() would be if the control showed this stored text.
    virtual std::string shownFor(const std::string& text) const = 0;
    /// What the control stands for, in the key's encoding; nothing if the key is to stay as it is.
    virtual std::optional<std::string> text() const = 0;

    std::string key_;
    Stored stored_;                        ///< as it was read last
    std::optional<std::string> unchanged_; ///< text() for what is stored, or after the last store
};

/// A check box: "1" is checked, any other text is not; stores "1" or "0".
class FlagBinding : public Binding {
public:
    FlagBinding(std::string key, QCheckBox& box);

private:
    void showText(const Orv::iAppConfiguration& appConfig, const std::string& text) override;
    std::vector<QWidget*> controls() const override;
    std::string shownFor(const std::string& text) const override;
    std::optional<std::string> text() const override;

    QCheckBox& box_;
};

/// One button of a choice and the number that it is stored as.
struct ChoiceButton {
    long value;
    QRadioButton* button;
};

/// What a choice stores while none of its buttons is checked.
enum class NoneChecked { nothing, otherButton };

/// The radio buttons of a group box, by a table of numbers. The stored text counts as far as it is an
/// integer.
class ChoiceBinding : public Binding {
public:
    /// @param other index, from 0, of the button that shows a number that no button has.
    ChoiceBinding(std::string key, QGroupBox& group, std::vector<ChoiceButton> buttons, std::size_t other,
                  NoneChecked noneChecked);

private:
    void showText(const Orv::iAppConfiguration& appConfig, const std::string& text) override;
    std::vector<QWidget*> controls() const override;
    std::string shownFor(const std::string& text) const override;
    std::optional<std::string> text() const override;
    const ChoiceButton& choiceFor(const std::string& text) const;

    QGroupBox& group_;
    std::vector<ChoiceButton> buttons_;
    std::size_t other_;
    NoneChecked noneChecked_;
};

/// A list, by the index from 0 of what is selected. The stored text counts as far as it is an integer; one
/// that is no index selects nothing, and nothing selected stores -1.
class IndexBinding : public Binding {
public:
    IndexBinding(std::string key, QComboBox& list);

private:
    void showText(const Orv::iAppConfiguration& appConfig, const std::string& text) override;
    std::vector<QWidget*> controls() const override;
    std::string shownFor(const std::string& text) const override;
    std::optional<std::string> text() const override;
    int indexFor(const std::string& text) const;

    QComboBox& list_;
};

/// A length in a spin control, with a label that shows the unit. The limits follow the unit: one step of its
/// last decimal to a thousand steps. Until it is shown it is set up for inches.
class LengthBinding : public Binding {
public:
    LengthBinding(std::string key, CDecimalSpinCtrl& control, QLabel& unitLabel);

    void followUnit(const Orv::iAppConfiguration& appConfig) override;

    Orv::Metrics::Unit unit() const { return unit_; }
    CDecimalSpinCtrl& control() const { return control_; }

private:
    void showText(const Orv::iAppConfiguration& appConfig, const std::string& text) override;
    std::vector<QWidget*> controls() const override;
    std::string shownFor(const std::string& text) const override;
    std::optional<std::string> text() const override;

    void setUnit(Orv::Metrics::Unit unit);
    void render(long length, Orv::Metrics::Unit unit);
    long length() const;

    CDecimalSpinCtrl& control_;
    QLabel& unitLabel_;
    Orv::Metrics::Unit unit_;
    long rendered_ = 0;
};

/// The bindings of a page, in the order in which it writes them. Empty, it shows, stores and reports nothing.
class Bindings {
public:
    /// Binds the controls of a form to the keys that they carry: check boxes, groups of radio buttons, lists
    /// and lengths; see formkeys.h. Controls of other kinds are the page's own matter.
    /// @param order the keys in the order in which they are written; what it does not name comes behind.
    void bind(QWidget& form, std::span<const char* const> order);
    bool empty() const { return bindings_.empty(); }

    void show(const Orv::iAppConfiguration& appConfig);
    void store(Orv::iAppConfiguration& appConfig);
    /// @return the fields whose edits were given up.
    std::vector<Orv::RefreshResult::Field> follow(const Orv::iAppConfiguration& appConfig);
    bool isModified() const;
    void followUnit(const Orv::iAppConfiguration& appConfig);
    std::vector<const LengthBinding*> lengths() const;

private:
    std::vector<std::unique_ptr<Binding>> bindings_;
};

} // namespace ovsettings
