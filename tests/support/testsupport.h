#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QDialog;
class QWidget;

namespace testsupport {

/// A directory of the test's own, deleted at its end.
class TemporaryDirectory {
public:
    TemporaryDirectory();
    ~TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

/// Sets an environment variable, or unsets it, until the end of the scope.
class ScopedEnvironment {
public:
    ScopedEnvironment(const char* name, const std::optional<std::string>& value);
    ~ScopedEnvironment();
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

private:
    std::string name_;
    std::optional<std::string> before_;
};

/// Gives the C library German numbers, in a locale made for the purpose and named as Debian names it;
/// programs that are started with the name in their environment find it too.
class GermanNumbers {
public:
    GermanNumbers();
    ~GermanNumbers();

    static constexpr const char* kName = "de_DE.UTF-8";
    /// False where no locale can be made.
    bool available() const { return available_; }

private:
    std::string before_;
    TemporaryDirectory directory_;
    ScopedEnvironment path_;
    bool available_;
};

void writeFile(const std::filesystem::path& path, const std::string& text);
std::string readFile(const std::filesystem::path& path);

/// Whether a text has this part; where that is not as expected, the text is told.
testing::AssertionResult contains(const std::string& text, const std::string& part);

/// An installation, a site level and a user directory in a temporary directory, with `RSR_HOME` and `WDIR`
/// set to them. The levels hold no file until a test writes one.
class Installation {
public:
    Installation();

    std::filesystem::path home() const { return root_ / "home"; }
    std::filesystem::path standard() const { return home() / "standard"; }
    std::filesystem::path site() const { return root_ / "site"; }
    std::filesystem::path user() const { return root_ / "user"; }

    /// Writes the catalogue: the text between the document element's tags.
    void writeCatalogue(const std::string& dialogs) const {
        writeFile(standard() / "settings.xml", "<settings>" + dialogs + "</settings>");
    }
    /// One category of a catalogue.
    static std::string category(const std::string& name, const std::string& key,
                                const std::string& localization = "internal", const std::string& inner = "") {
        return "<dialog><name>" + name + "</name><classid>" + key + "</classid><localization>" +
               localization + "</localization>" + inner + "</dialog>";
    }

private:
    TemporaryDirectory root_;
    ScopedEnvironment home_;
    ScopedEnvironment wdir_;
};

/// Runs `script` as soon as the next modal widget is up, inside its event loop. A script that leaves a modal
/// widget open has it closed, and the test fails.
void whenModal(const std::function<void(QWidget& modal)>& script);

/// As whenModal, but message boxes that come first are accepted and their texts added to `boxes`.
void whenDialog(const std::function<void(QDialog& dialog)>& script,
                std::vector<std::string>* boxes = nullptr);

/// Answers the next message box with the button of that caption; `text` receives what it says.
void answerNextMessageBox(const std::string& button, std::string* text = nullptr);

/// Finds a control by what the user reads: a button, check box or radio button by its own text, any other by
/// the label beside it. Fails the test, naming the captions there are, and gives null if there is none.
QWidget* controlByCaption(QWidget& root, const std::string& caption);

template <typename T>
T* find(QWidget& root, const std::string& caption) {
    return dynamic_cast<T*>(controlByCaption(root, caption));
}

/// Selects the category of a settings dialog as a user does, with a mouse click on its item.
bool selectCategory(QWidget& dialog, const std::string& caption);

} // namespace testsupport
