#include "dialog/pages/advanced/generalcheckbox.h"
#include "dialog/pages/advanced/generalgrid.h"
#include "dialog/pages/advanced/generalrowcheckbox.h"
#include "dialog/pages/advanced/generalrowedit.h"
#include "dialog/pages/advanced/generalrowunitvalueedit.h"
#include "orv/appconfiguration.h"
#include "tests/support/configurationtext.h"
#include "tests/support/widgets.h"

using namespace ovsettings;
using testsupport::messageDuring;

namespace {

class GeneralRows : public testing::Test {
protected:
    GeneralRows() {
        appConfig_.load();
        grid_.setAppConfiguration(&appConfig_);
    }

    template <typename Row, typename... Arguments>
    Row& add(const char* key, Arguments... arguments) {
        auto row = std::make_unique<Row>(grid_, appConfig_, arguments...);
        Row& added = *row;
        added.setKey(key);
        grid_.appendRow(std::move(row));
        return added;
    }

    static std::string stored(CGeneralRow& row) {
        std::string text = "untouched";
        row.store(text);
        return text;
    }

    testsupport::Installation installation_;
    Orv::iAppConfiguration appConfig_;
    CGeneralGrid grid_;
};

} // namespace

TEST_F(GeneralRows, NumberOutsideItsLimitsIsRefusedWithTheRowsMessage) {
    auto& row = add<CGeneralRowEdit>("SHEETSIZE", "Sheet");
    row.setDisplayValue("nonsense");
    EXPECT_TRUE(row.validate()) << "there are no limits";
    row.setLimits(1, 10);
    for (const char* text : {"nonsense", "", "0", "11", "99999999999999999999"}) {
        row.setDisplayValue(text);
        EXPECT_EQ(messageDuring([&] { EXPECT_FALSE(row.validate()); }), "Incorrect value") << text;
        EXPECT_EQ(row.valueText().toStdString(), text);
        EXPECT_EQ(grid_.currentRow(), 1);
    }
    row.setErrorText("Too many");
    EXPECT_EQ(messageDuring([&] { EXPECT_FALSE(row.validate()); }), "Too many");
    row.setDisplayValue("10");
    EXPECT_TRUE(row.validate());
    EXPECT_EQ(stored(row), "10");
    EXPECT_EQ(appConfig_.getNumber("SHEETSIZE"), 10);
}

TEST_F(GeneralRows, LengthOutsideItsLimitsIsRefusedInItsUnit) {
    auto& row = add<CGeneralRowUnitValueEdit>("GRID_HR", "Grid", Orv::Metrics::Unit::inch);
    row.setLimits(0, 0);
    row.setDisplayValue("-5e9");
    EXPECT_TRUE(row.validate());
    row.setLimits(25400, 2540000);
    for (const auto& [unit, expected] :
         {std::pair{Orv::Metrics::Unit::inch, "value should be between 0.01 and 1.00 in"},
          {Orv::Metrics::Unit::millimetre, "value should be between 0.25 and 25.40 mm"}}) {
        row.onUnitChanged(unit);
        EXPECT_EQ(messageDuring([&] { EXPECT_FALSE(row.validate()); }), expected);
    }
    row.setDisplayValue("25400");
    EXPECT_TRUE(row.validate()) << "0.254 mm, shown as 0.25, is the limit itself";
}

TEST_F(GeneralRows, NumberThatIsLockedIsNotTheUsersToMend) {
    using testsupport::setting;
    testsupport::writeLevel(installation_.site(),
                            setting("SHEETSIZE", "12", true) + setting("GRID_HR", "12", true));
    ASSERT_TRUE(appConfig_.load());
    auto& sheet = add<CGeneralRowEdit>("SHEETSIZE", "Sheet");
    auto& grid = add<CGeneralRowUnitValueEdit>("GRID_HR", "Grid", Orv::Metrics::Unit::inch);
    sheet.setLimits(1, 10);
    grid.setLimits(1, 10);
    EXPECT_EQ(messageDuring([&] { EXPECT_TRUE(sheet.validate() && grid.validate()); }), "");
}

TEST_F(GeneralRows, FlagShowsItsKeyWhateverItIsGiven) {
    auto& row = add<CGeneralCheckBox>("AUTOPAN", "Pan");
    appConfig_.setNumber("AUTOPAN", 0);
    row.setDisplayValue("1");
    EXPECT_EQ(row.valueText().toStdString(), "0");
}

TEST_F(GeneralRows, ChoicesAreSplitAtLineFeeds) {
    auto row = std::make_unique<CGeneralRowCheckBox>(grid_, appConfig_, "List");
    row->setDisplayValue("one\ntwo");
    row->setDisplayValue("");
    row->select("none of them");
    grid_.appendRow(std::move(row));
    EXPECT_EQ(grid_.cellStyle(1, 2).choices, (QStringList{"one", "two", ""}));
    EXPECT_EQ(stored(*grid_.rows().front()), "none of them");
}
