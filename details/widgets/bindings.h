#pragma once

#include "orv/metrics.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QRadioButton;

namespace Orv {
class iAppConfiguration;
}

namespace ovsettings {

class CDecimalSpinCtrl;

/// A flag as it is stored.
constexpr const char* flagText(bool on) {
    return on ? "1" : "0";
}

/// Joins one control to one key of the application configuration: shows the value, disables the control where
/// the key is locked, says whether the user changed it, and writes it back. The control must outlive the
/// calls.
class CBinding {
public:
    explicit CBinding(std::string key);
    virtual ~CBinding() = default;
    CBinding(const CBinding&) = delete;
    CBinding& operator=(const CBinding&) = delete;

    void show(const Orv::iAppConfiguration& appConfig);
    /// Writes the key, a locked one too: the store keeps what is locked, and tells its sinks.
    void store(Orv::iAppConfiguration& appConfig);
    /// True if the control stands for another value than after the last show or store, so not where a store
    /// would only bring an odd text into its normal form. A locked key never changes.
    bool isModified() const;

protected:
    const std::string& key() const { return key_; }

private:
    virtual void showText(const Orv::iAppConfiguration& appConfig, const std::string& text) = 0;
    virtual void showLock(const Orv::iAppConfiguration& appConfig) = 0;
    /// What the control stands for, in the key's encoding; nothing if the key is to stay as it is.
    virtual std::optional<std::string> text() const = 0;

    std::string key_;
    std::optional<std::string> unchanged_; ///< text() after the last show or store
    bool locked_ = false;
};

/// A check box: "1" is checked, any other text is not; stores "1" or "0".
class CFlagBinding : public CBinding {
public:
    CFlagBinding(std::string key, QCheckBox& box);

private:
    void showText(const Orv::iAppConfiguration& appConfig, const std::string& text) override;
    void showLock(const Orv::iAppConfiguration& appConfig) override;
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
class CChoiceBinding : public CBinding {
public:
    /// @param other index, from 0, of the button that shows a number that no button has.
    CChoiceBinding(std::string key, QGroupBox& group, std::vector<ChoiceButton> buttons, std::size_t other,
                   NoneChecked noneChecked);

private:
    void showText(const Orv::iAppConfiguration& appConfig, const std::string& text) override;
    void showLock(const Orv::iAppConfiguration& appConfig) override;
    std::optional<std::string> text() const override;

    QGroupBox& group_;
    std::vector<ChoiceButton> buttons_;
    std::size_t other_;
    NoneChecked noneChecked_;
};

/// A list, by the index from 0 of what is selected. The stored text counts as far as it is an integer; one
/// that is no index selects nothing, and nothing selected stores -1.
class CIndexBinding : public CBinding {
public:
    CIndexBinding(std::string key, QComboBox& list);

private:
    void showText(const Orv::iAppConfiguration& appConfig, const std::string& text) override;
    void showLock(const Orv::iAppConfiguration& appConfig) override;
    std::optional<std::string> text() const override;

    QComboBox& list_;
};

/// A length in a spin control, with a label that shows the unit. The limits follow the unit: one step of its
/// last decimal to a thousand steps. Until it is shown it is set up for inches.
class CLengthBinding : public CBinding {
public:
    CLengthBinding(std::string key, CDecimalSpinCtrl& control, QLabel& unitLabel);

    /// Shows the same length in the configured unit if that has changed; an unsaved edit survives.
    void followUnit(const Orv::iAppConfiguration& appConfig);

    Orv::Metrics::Unit unit() const { return unit_; }
    CDecimalSpinCtrl& control() const { return control_; }

private:
    void showText(const Orv::iAppConfiguration& appConfig, const std::string& text) override;
    void showLock(const Orv::iAppConfiguration& appConfig) override;
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
class CBindings {
public:
    template <typename T, typename... Arguments>
    T& add(Arguments&&... arguments) {
        auto binding = std::make_unique<T>(std::forward<Arguments>(arguments)...);
        T& added = *binding;
        bindings_.push_back(std::move(binding));
        return added;
    }

    void show(const Orv::iAppConfiguration& appConfig);
    void store(Orv::iAppConfiguration& appConfig);
    bool isModified() const;

private:
    std::vector<std::unique_ptr<CBinding>> bindings_;
};

} // namespace ovsettings
