#include "dialog/pages/editor/panandzoomdialog.h"

#include "tests/editor/editorfixture.h"

#include <array>
#include <span>

using ovsettings::CPanAndZoomDialog;
using testsupport::find;

namespace {

constexpr std::array kKeys{"LORVIK_ZOOM", "SARN_ZOOM", "DEFAULT_ZOOM", "STROKES", "MIDSTROKE"};
constexpr std::array kZooms{"Default Pan and Zoom", "Lorvik Pan and Zoom", "SARN Pan and Zoom"};
constexpr std::array kStrokes{"Strokes off", "&Right Button", "&Middle Button"};

class PanAndZoomPage : public EditorPages {
protected:
    /// Loads the five flags, one digit each, in the order of kKeys.
    void loadFlags(const std::string& digits, const std::string& lockedKey = "") {
        std::vector<Entry> entries;
        for (std::size_t i = 0; i < kKeys.size(); ++i)
            entries.push_back({kKeys[i], digits.substr(i, 1), kKeys[i] == lockedKey});
        load(entries);
    }

    std::string flags() const {
        std::string digits;
        for (const char* key : kKeys)
            digits += stored(key);
        return digits;
    }

    QRadioButton& button(QString caption) {
        return *find<QRadioButton>(window_, caption.remove(QLatin1Char('&')).toStdString());
    }

    /// The caption of what is checked, to the letter.
    std::string checked(std::span<const char* const> captions) {
        std::string text;
        for (const char* caption : captions)
            text += button(caption).isChecked() ? button(caption).text().toStdString() : "";
        return text;
    }
};

} // namespace

TEST_F(PanAndZoomPage, StoresWhatItShowsAndKeepsTheMiddleButtonForTheSarnStyle) {
    struct {
        const char *before, *click, *zoom, *strokes, *after;
        const char* written; ///< places in kKeys
        bool changes = *click != '\0' && std::string_view(before) != after;
    } const rows[] = {
        {"00110", "", "Default Pan and Zoom", "&Right Button", "00110", "01234"},
        {"10011", "", "Lorvik Pan and Zoom", "&Middle Button", "10011", "01234"},
        {"01010", "", "SARN Pan and Zoom", "&Right Button", "01010", "01234"},
        {"00001", "", "Default Pan and Zoom", "Strokes off", "00101", "0123"},
        {"11110", "", "Lorvik Pan and Zoom", "&Right Button", "10010", "01234"},
        {"01111", "", "SARN Pan and Zoom", "&Middle Button", "01010", "01234"},
        {"01001", "", "SARN Pan and Zoom", "Strokes off", "01001", "0123"},
        {"20110", "", "Default Pan and Zoom", "&Right Button", "00110", "01234"},
        {"02111", "", "", "&Middle Button", "02111", "34"},
        {"02000", "", "", "Strokes off", "02000", "3"},
        {"00121", "", "Default Pan and Zoom", "Strokes off", "00101", "0123"},
        {"00112", "", "Default Pan and Zoom", "&Right Button", "00110", "01234"},
        {"00111", "SARN Pan and Zoom", "SARN Pan and Zoom", "&Right Button", "01010", "01234"},
        {"00111", "Lorvik Pan and Zoom", "Lorvik Pan and Zoom", "&Middle Button", "10011", "01234"},
        {"00101", "SARN Pan and Zoom", "SARN Pan and Zoom", "Strokes off", "01001", "0123"},
        {"01010", "&Middle Button", "SARN Pan and Zoom", "&Right Button", "01010", "01234"},
        {"01000", "&Middle Button", "SARN Pan and Zoom", "&Right Button", "01010", "01234"},
        {"01000", "&Right Button", "SARN Pan and Zoom", "&Right Button", "01010", "01234"},
        {"01011", "SARN Pan and Zoom", "SARN Pan and Zoom", "&Right Button", "01010", "01234",
         false}, // what a store writes anyway
        {"01011", "Default Pan and Zoom", "Default Pan and Zoom", "&Middle Button", "00111", "01234"},
        {"00110", "&Middle Button", "Default Pan and Zoom", "&Middle Button", "00111", "01234"},
        {"00111", "Strokes off", "Default Pan and Zoom", "Strokes off", "00101", "0123"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.before) + ' ' + row.click);
        loadFlags(row.before);
        CPanAndZoomDialog& page = open<CPanAndZoomDialog>();
        if (*row.click)
            QTest::mouseClick(&button(row.click), Qt::LeftButton);
        EXPECT_EQ(checked(kZooms), row.zoom);
        EXPECT_EQ(checked(kStrokes), row.strokes);
        EXPECT_EQ(flags(), row.before);
        EXPECT_EQ(page.isModified(), row.changes);
        std::vector<std::string> written;
        for (const char* place = row.written; *place; ++place)
            written.push_back(kKeys[static_cast<std::size_t>(*place - '0')]);
        EXPECT_EQ(keysWrittenBy(page), written);
        EXPECT_EQ(flags(), row.after);
        EXPECT_FALSE(page.isModified());
        EXPECT_NE(checked(kZooms) + checked(kStrokes), "SARN Pan and Zoom&Middle Button");
    }
}

TEST_F(PanAndZoomPage, DisablesTheButtonsOfALockedKeyAndNoOthers) {
    const std::pair<const char*, std::string> rows[] = {
        {"DEFAULT_ZOOM", kZooms[0]},
        {"LORVIK_ZOOM", kZooms[1]},
        {"SARN_ZOOM", kZooms[2]},
        {"STROKES", kStrokes[0]},
        {"MIDSTROKE", "&Right Button&Middle Button"},
    };
    for (const auto& [key, expected] : rows) {
        loadFlags("10011", key);
        CPanAndZoomDialog& page = open<CPanAndZoomDialog>();
        std::string disabled;
        for (const QRadioButton* each : page.findChildren<QRadioButton*>()) {
            disabled += each->isEnabled() ? "" : each->text().toStdString();
            EXPECT_EQ(each->toolTip().toStdString(), each->isEnabled() ? "" : "Locked by " + siteDirectory());
        }
        EXPECT_EQ(disabled, expected);

        const std::string before = stored(key);
        QTest::mouseClick(&button("SARN Pan and Zoom"), Qt::LeftButton);
        EXPECT_TRUE(page.onApply());
        EXPECT_EQ(stored(key), before);
        EXPECT_FALSE(page.isModified());
    }
}

TEST_F(PanAndZoomPage, TheFocusComesBackFromTheMiddleButtonWithTheCheck) {
    loadFlags("01010");
    open<CPanAndZoomDialog>();
    testsupport::activate(window_);
    const std::function<void()> ways[] = {
        [this] { QTest::keyClick(&button("&Right Button"), Qt::Key_Down); },
        [this] { QTest::mouseClick(&button("&Middle Button"), Qt::LeftButton); },
    };
    for (const auto& toTheMiddle : ways) {
        button("&Right Button").setFocus();
        toTheMiddle();
        EXPECT_TRUE(button("&Right Button").isChecked() && button("&Right Button").hasFocus());
    }
    button("&Right Button").setFocus();
    QTest::keyClick(&button("&Right Button"), Qt::Key_Up);
    EXPECT_TRUE(button("Strokes off").isChecked() && button("Strokes off").hasFocus());
}

TEST_F(PanAndZoomPage, ReachesEveryFreeButtonByKeyboard) {
    struct {
        const char* lockedKey;
        const char* tabStops[2]; ///< where Tab leads to while nothing has had the focus
    } const rows[] = {
        {"", {"SARN Pan and Zoom", "&Right Button"}},
        {"SARN_ZOOM", {"Default Pan and Zoom", "&Right Button"}},
        {"MIDSTROKE", {"SARN Pan and Zoom", "Strokes off"}},
    };
    const auto press = [](Qt::Key key) {
        QTest::keyClick(QApplication::focusWidget(), key);
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.lockedKey);
        loadFlags("01010", row.lockedKey);
        CPanAndZoomDialog& page = open<CPanAndZoomDialog>();
        testsupport::activate(window_);
        window_.setFocus();
        for (std::size_t group = 0; group < 2; ++group) {
            press(Qt::Key_Tab);
            EXPECT_TRUE(button(row.tabStops[group]).hasFocus());
            // Upwards, so that the zoom style does not stay "SARN".
            const auto& captions = group == 0 ? kZooms : kStrokes;
            for (auto at = captions.rbegin(); at != captions.rend(); ++at) {
                const char* caption = *at;
                if (!button(caption).isEnabled())
                    continue;
                for (int steps = 0; !button(caption).hasFocus() && steps < 3; ++steps)
                    press(QApplication::focusWidget()->y() < button(caption).y() ? Qt::Key_Down : Qt::Key_Up);
                press(Qt::Key_Space);
                EXPECT_EQ(checked(captions), caption);
            }
        }
        EXPECT_TRUE(page.onOk());
        EXPECT_EQ(stored("STROKES"), "0");
    }
}
