#include "dialog/widgets/decimalspinctrl.h"

#include "tests/support/widgets.h"

#include <QtGui/QAccessible>

#include <limits>

using ovsettings::CDecimalSpinCtrl;
using testsupport::type;

namespace {

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

TEST(DecimalSpinCtrl, ShowsNumbersWithItsDecimalsAndNeverASmallOneAsZero) {
    struct {
        double value;
        int decimals;
        const char* text;
    } const rows[] = {
        {0.1, 2, "0.10"},        {0.0004, 2, "0.0004"},
        {-0.0004, 2, "-0.0004"}, {0, 2, "0.00"},
        {0.5, 0, "0.5"},         {7, 0, "7"},
        {0.1, -1, "0.1"},        {1234567, -1, "1.23457e+06"},
        {kNoNumber, 2, "0.00"},  {-kInfinity, -1, "-1.79769e+308"},
    };
    for (const auto& row : rows) {
        CDecimalSpinCtrl control;
        control.setDecimals(row.decimals);
        control.setValue(row.value);
        EXPECT_EQ(control.text().toStdString(), row.text);
        EXPECT_EQ(control.getDecimals(), row.decimals);
    }
    CDecimalSpinCtrl control;
    control.setDecimals(2);
    control.setValue(std::numeric_limits<double>::denorm_min());
    EXPECT_GT(control.getValue(), 0);
}

TEST(DecimalSpinCtrl, ReadsTheNumberThatATypedTextBeginsWith) {
    const std::pair<const char*, double> rows[] = {
        {"1.5", 1.5}, {" -2 mm", -2},      {"1.5.2", 1.5}, {"2e3x", 2000},      {".5", 0.5},   {"", 0},
        {"abc", 0},   {"1e999", kLargest}, {"nan", 0},     {"-inf", -kLargest}, {"1e-999", 0},
    };
    CDecimalSpinCtrl control;
    for (const auto& [text, value] : rows) {
        type(control, text);
        EXPECT_EQ(control.text().toStdString(), text) << "any text may be typed";
        EXPECT_EQ(control.getValue(), value) << text;
    }
}

TEST(DecimalSpinCtrl, StandsAtTheNearestOfItsPositions) {
    struct {
        double minimum, maximum, step, value;
        int positions, position;
    } const rows[] = {
        {0, 100, 1, 25, 100, 25},
        {0, 100, 1, -1, 100, 0},
        {0, 100, 1, 101, 100, 100},
        {0, 10, 4, 7, 2, 1},
        {0, 10, 0, 5, 100, 50},
        {10, 0, -1, 5, 10, 0},
        {0, 1e9, 0.001, 5e8, 32767, 16384},
        {5, 5, 1, 5, 0, 0},
        {-kInfinity, kInfinity, 1, 0, 32767, 16384},
        {kNoNumber, 100, kNoNumber, 50, 100, 50},
    };
    for (const auto& row : rows) {
        CDecimalSpinCtrl control;
        control.setRange(row.minimum, row.maximum, row.step);
        control.setValue(row.value);
        EXPECT_EQ(control.positions(), row.positions) << row.minimum << ' ' << row.maximum << ' ' << row.step;
        EXPECT_EQ(control.position(), row.position) << row.minimum << ' ' << row.maximum << ' ' << row.step;
    }
}

TEST(DecimalSpinCtrl, StepsWithinItsLimitsOrAroundThem) {
    struct {
        double minimum, maximum, step, value;
        int delta;
        bool wrapping;
        const char* text;
    } const rows[] = {
        {0, 10, 0.5, 1, 1, false, "1.50"},
        {0, 10, 0.5, 1, -1, false, "0.50"},
        {0, 10, 0.5, 10, 1, false, "10.00"},
        {0, 10, 0.5, 10, 1, true, "0.00"},
        {1, 10, 0.5, 1, -1, false, "1.00"},
        {1, 10, 0.5, 1, -1, true, "10.00"},
        {1, 10, 0.5, 9000, 1, false, "10.00"},
        // Down from far above still counts from where the text is.
        {1, 10, 0.5, 9000, -1, false, "8999.50"},
        // Within a billionth of the limit is inside it, and does not wrap.
        {0, 1e9, 1, 1e9 - 0.5, 1, true, "1000000000.50"},
        {0, 1e9, 1, 1e9 + 0.5, 1, true, "0.00"},
        {1, 10, kInfinity, 5, 1, false, "10.00"},
        {1, 10, kInfinity, 5, -1, true, "10.00"},
    };
    for (const auto& row : rows) {
        CDecimalSpinCtrl control;
        control.setDecimals(2);
        control.setRange(row.minimum, row.maximum, row.step);
        control.setValue(row.value);
        control.setWrapping(row.wrapping);
        const int position = control.position();
        control.stepBy(row.delta);
        EXPECT_EQ(control.text().toStdString(), row.text) << row.value << ' ' << row.delta;
        EXPECT_EQ(control.position(), position) << "a step is reported and leaves the position to the text";
    }
}

TEST(DecimalSpinCtrl, IsSteppedByKeysAndArrows) {
    CDecimalSpinCtrl control;
    control.setValue(50);
    control.show();
    const std::pair<Qt::Key, const char*> rows[] = {
        {Qt::Key_Up, "51"}, {Qt::Key_Down, "50"}, {Qt::Key_PageUp, "60"}, {Qt::Key_PageDown, "50"}};
    for (const auto& [key, text] : rows) {
        QTest::keyClick(&control, key);
        EXPECT_EQ(control.text().toStdString(), text);
    }
    QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(control.width() - 6, control.height() / 4));
    EXPECT_EQ(control.text().toStdString(), "51");
}

TEST(DecimalSpinCtrl, RemembersThatTheUserEditedUntilAValueIsSet) {
    CDecimalSpinCtrl control;
    control.setValue(5);
    EXPECT_FALSE(control.isEdited());
    control.stepBy(1);
    EXPECT_TRUE(control.isEdited());
    control.setValue(5);
    EXPECT_FALSE(control.isEdited());
    type(control, "7");
    // Enter makes the line edit forget that it was modified.
    QTest::keyClick(&control, Qt::Key_Return);
    EXPECT_TRUE(control.isEdited());
}

TEST(DecimalSpinCtrl, IsReadAndEditedByAssistiveTechnology) {
    CDecimalSpinCtrl control;
    control.setRange(1, 50, 1);
    control.setValue(5);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&control);
    ASSERT_TRUE(accessible && accessible->valueInterface());
    QAccessibleValueInterface& value = *accessible->valueInterface();
    EXPECT_EQ(value.currentValue().toDouble(), 5);
    EXPECT_EQ(value.minimumValue().toDouble(), 1);
    EXPECT_EQ(value.maximumValue().toDouble(), 50);
    value.setCurrentValue(7);
    EXPECT_EQ(control.getValue(), 7);
    EXPECT_TRUE(control.isEdited());
    control.setValue(5);
    ASSERT_TRUE(accessible->editableTextInterface());
    accessible->editableTextInterface()->replaceText(0, 1, QStringLiteral("9"));
    EXPECT_EQ(control.getValue(), 9);
    EXPECT_TRUE(control.isEdited());
}

TEST(DecimalSpinCtrl, WritesTheDecimalPointOfTheLocaleAndReadsBoth) {
    const testsupport::GermanNumbers german;
    if (!german.available())
        GTEST_SKIP() << "no locale can be made here";
    CDecimalSpinCtrl control;
    control.setDecimals(2);
    control.setValue(0.004);
    EXPECT_EQ(control.text().toStdString(), "0,004");
    EXPECT_EQ(control.getValue(), 0.004);
    type(control, "2,5");
    EXPECT_EQ(control.getValue(), 2.5);
    type(control, "2.5");
    EXPECT_EQ(control.getValue(), 2.5);
    control.stepBy(-1);
    EXPECT_EQ(control.text().toStdString(), "1,50");
}
