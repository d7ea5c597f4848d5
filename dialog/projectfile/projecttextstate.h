#pragma once

#include <string>

namespace ovsettings {

/// A text of the project while a page shows it: what the project holds as far as the page knows, what the
/// page has, and what it had when the user came to it. All are bytes.
class ProjectTextState {
public:
    /// The project's value comes onto the page.
    void loaded(const std::string& value) { project_ = text_ = entered_ = value; }
    void edited(const std::string& text) { text_ = text; }
    /// The user comes to the page.
    void entered() { entered_ = text_; }
    /// The user declines to save what he has edited since.
    void declined() { text_ = entered_; }
    /// The page has written its text. @param value what the project holds after that: what it does not hold
    /// is still to be written.
    void stored(const std::string& value) {
        if (text_ == value || entered_ == project_)
            entered_ = value;
        project_ = value;
    }
    /// Another page or program has stored a value: whatever stood for the project's former one stands for
    /// this. An edit stays.
    void followed(const std::string& value) {
        for (std::string* copy : {&text_, &entered_}) {
            if (*copy == project_)
                *copy = value;
        }
        project_ = value;
    }

    const std::string& project() const { return project_; }
    const std::string& text() const { return text_; }
    bool isEdited() const { return text_ != project_; }
    bool isEditedSinceEntered() const { return text_ != entered_; }

private:
    std::string project_;
    std::string text_;
    std::string entered_;
};

} // namespace ovsettings
