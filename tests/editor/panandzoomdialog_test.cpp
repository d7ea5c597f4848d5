#include "details/pages/editor/panandzoomdialog.h"

#include "tests/editor/editorfixture.h"

#include <QtTest/QTest>
#include <QtWidgets/QRadioButton>

#include <array>
#include <ranges>
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

TEST_F(PanAndZoomPage, ShowsWhatIsStoredAndStoresWhatItShows) {
    struct {
        const char* before;
        const char* zoom;
        const char* strokes;
        const char* after;
    } const rows[] = {
        {"00110", "Default Pan and Zoom", "&Right Button", "00110"},
        {"10011", "Lorvik Pan and Zoom", "&Middle Button", "10011"},
        {"01010", "SARN Pan and Zoom", "&Right Button", "01010"},
        {"00001", "Default Pan and Zoom", "Strokes off", "00101"},
        {"11110", "Lorvik Pan and Zoom", "&Right Button", "10010"},
        {"01111", "SARN Pan and Zoom", "&Middle Button", "01010"},
        {"01001", "SARN Pan and Zoom", "Strokes off", "01001"},
        {"20110", "Default Pan and Zoom", "&Right Button", "00110"},
        {"02111", "", "&Middle Button", "02111"},
        {"00121", "Default Pan and Zoom", "Strokes off", "00101"},
        {"00112", "Default Pan and Zoom", "&Right Button", "00110"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.before);
        loadFlags(row.before);
        CPanAndZoomDialog& page = open<CPanAndZoomDialog>();
        EXPECT_EQ(checked(kZooms), row.zoom);
        EXPECT_EQ(checked(kStrokes), row.strokes);
        EXPECT_EQ(page.isModified(), std::string(row.before) != row.after);
        EXPECT_TRUE(page.onOk());
        EXPECT_EQ(flags(), row.after);
        EXPECT_FALSE(page.isModified());
        EXPECT_NE(checked(kZooms) + checked(kStrokes), "SARN Pan and Zoom&Middle Button");
        delete &page;
    }
}

TEST_F(PanAndZoomPage, KeepsTheMiddleButtonForTheSarnStyleAtEachClick) {
    struct {
        const char* before;
        const char* click;
        const char* strokes;
        const char* after;
    } const rows[] = {
        {"00111", "SARN Pan and Zoom", "&Right Button", "01010"},
        {"00111", "Lorvik Pan and Zoom", "&Middle Button", "10011"},
        {"00101", "SARN Pan and Zoom", "Strokes off", "01001"},
        {"01010", "&Middle Button", "&Right Button", "01010"},
        {"01000", "&Middle Button", "&Right Button", "01010"},
        {"01000", "&Right Button", "&Right Button", "01010"},
        {"01011", "SARN Pan and Zoom", "&Right Button", "01010"},
        {"01011", "Default Pan and Zoom", "&Middle Button", "00111"},
        {"00110", "&Middle Button", "&Middle Button", "00111"},
        {"00111", "Strokes off", "Strokes off", "00101"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.before) + ' ' + row.click);
        loadFlags(row.before);
        CPanAndZoomDialog& page = open<CPanAndZoomDialog>();
        QTest::mouseClick(&button(row.click), Qt::LeftButton);
        EXPECT_EQ(checked(kStrokes), row.strokes);
        EXPECT_EQ(flags(), row.before);
        EXPECT_EQ(page.isModified(), std::string(row.before) != row.after);
        EXPECT_TRUE(page.onApply());
        EXPECT_EQ(flags(), row.after);
        delete &page;
    }
}

TEST_F(PanAndZoomPage, WritesInOrderAndLeavesAloneWhatDoesNotApply) {
    const std::vector<std::string> zoom{"LORVIK_ZOOM", "SARN_ZOOM", "DEFAULT_ZOOM"};
    const struct {
        const char* before;
        std::vector<std::string> written;
    } rows[] = {
        {"00110", {zoom[0], zoom[1], zoom[2], "STROKES", "MIDSTROKE"}},
        {"01011", {zoom[0], zoom[1], zoom[2], "STROKES", "MIDSTROKE"}},
        {"10001", {zoom[0], zoom[1], zoom[2], "STROKES"}},
        {"02000", {"STROKES"}},
    };
    for (const auto& row : rows) {
        loadFlags(row.before);
        CPanAndZoomDialog& page = open<CPanAndZoomDialog>();
        EXPECT_EQ(keysWrittenBy(page), row.written) << row.before;
        delete &page;
    }
}

TEST_F(PanAndZoomPage, DisablesTheButtonsOfALockedKeyAndNoOthers) {
    const struct {
        const char* key;
        std::vector<std::string> disabled;
    } rows[] = {
        {"DEFAULT_ZOOM", {"Default Pan and Zoom"}},
        {"LORVIK_ZOOM", {"Lorvik Pan and Zoom"}},
        {"SARN_ZOOM", {"SARN Pan and Zoom"}},
        {"STROKES", {"Strokes off"}},
        {"MIDSTROKE", {"&Right Button", "&Middle Button"}},
    };
    for (const auto& row : rows) {
        loadFlags("10011", row.key);
        CPanAndZoomDialog& page = open<CPanAndZoomDialog>();
        std::vector<std::string> disabled;
        for (const auto& captions : {kZooms, kStrokes}) {
            for (const char* caption : captions) {
                if (!button(caption).isEnabled())
                    disabled.push_back(button(caption).text().toStdString());
                EXPECT_EQ(button(caption).toolTip().toStdString(),
                          button(caption).isEnabled() ? "" : "Locked by " + siteDirectory());
            }
        }
        EXPECT_EQ(disabled, row.disabled);

        const std::string before = stored(row.key);
        QTest::mouseClick(&button("SARN Pan and Zoom"), Qt::LeftButton);
        EXPECT_TRUE(page.onApply());
        EXPECT_EQ(stored(row.key), before);
        EXPECT_FALSE(page.isModified());
        delete &page;
    }
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
    window_.show();
    window_.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    const auto press = [](Qt::Key key) {
        QTest::keyClick(QApplication::focusWidget(), key);
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.lockedKey);
        loadFlags("01010", row.lockedKey);
        CPanAndZoomDialog& page = open<CPanAndZoomDialog>();
        window_.setFocus();
        for (std::size_t group = 0; group < 2; ++group) {
            press(Qt::Key_Tab);
            EXPECT_TRUE(button(row.tabStops[group]).hasFocus());
            // Upwards, so that the zoom style does not stay "SARN".
            const auto& captions = group == 0 ? kZooms : kStrokes;
            for (const char* caption : captions | std::views::reverse) {
                if (!button(caption).isEnabled())
                    continue;
                for (int steps = 0; !button(caption).hasFocus() && steps < 3; ++steps)
                    press(QApplication::focusWidget()->y() < button(caption).y() ? Qt::Key_Down : Qt::Key_Up);
                press(Qt::Key_Space);
                EXPECT_EQ(checked(captions), caption);
            }
        }
        delete &page;
    }
}

TEST_F(PanAndZoomPage, TakesABrokenConfigurationAsOff) {
    for (const char* text : {"nonsense", "", "-1", "1e400", "yes"}) {
        std::vector<Entry> entries;
        for (const char* key : kKeys)
            entries.push_back({key, text});
        loadAsWritten(entries);
        CPanAndZoomDialog& page = open<CPanAndZoomDialog>();
        EXPECT_EQ(checked(kStrokes), "Strokes off") << text;
        QTest::mouseClick(&button("Lorvik Pan and Zoom"), Qt::LeftButton);
        QTest::mouseClick(&button("&Middle Button"), Qt::LeftButton);
        EXPECT_TRUE(page.onApply());
        EXPECT_EQ(flags(), "10011") << text;
        delete &page;
    }
}

TEST_F(PanAndZoomPage, WithoutAWindowWritesNothing) {
    load({});
    CPanAndZoomDialog page(nullptr);
    page.setAppConfiguration(&appConfig_);
    EXPECT_FALSE(page.isModified());
    EXPECT_TRUE(keysWrittenBy(page).empty());
}
