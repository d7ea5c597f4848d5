#include "store/unitglue.h"

#include "orv/appconfiguration.h"
#include "store/conversionregistrator.h"
#include "store/designresolution.h"
#include "suite/designdatabase.h"
#include "tests/support/testsupport.h"

#include <limits>
#include <map>
#include <utility>

namespace {

using namespace Orv;
using Metrics::Resolution;
using Metrics::Unit;

TEST(UnitGlue, AnUnknownUnitIsTheInchAndANewOneLeavesStoredLengthsAlone) {
    testsupport::Installation installation;
    iAppConfiguration appConfig;
    appConfig.load();
    setConfiguredUnit(appConfig, Unit::millimetre);
    EXPECT_EQ(getConfiguredUnit(appConfig), Unit::millimetre);
    EXPECT_EQ(appConfig.getNumber("GRID_HR"), 254000);
    iAppConfiguration::Property unit("UNIT");
    for (const std::vector<std::string>& values : {std::vector<std::string>{}, {"cubit"}}) {
        unit.values = values;
        appConfig.setProperty(unit);
        EXPECT_EQ(getConfiguredUnit(appConfig), Unit::inch);
    }
}

TEST(UnitGlue, ALengthIsReadFromWhateverTextTheStoreHolds) {
    constexpr long kMax = std::numeric_limits<long>::max();
    const std::pair<const char*, long> rows[] = {
        {"1016000", 1016000},
        {"1.016e+06", 1016000},
        {" +254000", 254000},
        {"29699999.02", 29699999},
        {"-2.9", -2},
        {"12,5", 12},
        {"27940000, 21590000", 27940000},
        {"", 0},
        {"wide", 0},
        {"nan", 0},
        {"1e400", kMax},
        {"-1e400", std::numeric_limits<long>::min()},
        {"9223372036854775807", kMax},
        {"1e-400", 0},
    };
    for (const auto& [text, length] : rows)
        EXPECT_EQ(lengthFromText(text), length) << text;
    EXPECT_EQ(lengthFromText(std::string_view("1234").substr(0, 2)), 12);
    EXPECT_EQ(lengthToText(-1234567), "-1234567");
}

TEST(Resolutions, ValuesOfNestedDataConvertFromTheTopOfTheStack) {
    const Resolution before = sessionResolution();
    setSessionResolution(Resolution::high);
    EXPECT_EQ(topToSession(7), 7);
    popResolution();
    pushResolution(Resolution::low);
    pushResolution(Resolution::high);
    EXPECT_EQ(topToSession(7), 7);
    popResolution();
    EXPECT_EQ(topToSession(7), 17780);
    EXPECT_EQ(legacyToSession(100), configToSession(254000));
    popResolution();
    EXPECT_EQ(topResolution(), sessionResolution());
    setSessionResolution(before);
}

class DesignObject : public iKDS::IObject {
public:
    explicit DesignObject(unsigned char kind = 0) : kind_(kind) {}

    unsigned char GetKind() const override { return kind_; }

    bool GetTextAttribute(const std::string& name, std::string& text) const override {
        const auto found = attributes.find(name);
        if (found == attributes.end())
            return false;
        text = found->second;
        return true;
    }

    bool SetTextAttribute(const std::string& name, const std::string& text) override {
        attributes[name] = text;
        return true;
    }

    std::map<std::string, std::string> attributes;

private:
    unsigned char kind_;
};

TEST(DesignResolution, AnObjectWithoutAMarkIsLowAndAWrittenMarkIsReadBack) {
    DesignObject object;
    EXPECT_EQ(readDesignResolution(object), Resolution::low);
    EXPECT_TRUE(writeDesignResolution(object, Resolution::high));
    EXPECT_EQ(readDesignResolution(object), Resolution::high);
    ASSERT_EQ(object.attributes.size(), 1u);
    object.attributes.begin()->second = "scribble";
    EXPECT_EQ(readDesignResolution(object), Resolution::low);
}

TEST(ConversionRegistrator, EachObjectOfAKnownKindIsRegisteredOnce) {
    struct Target : Metrics::_UTImpl::IConversionTarget {
        void registerObject(iKDS::IObject& object) override { kinds.push_back(object.GetKind()); }
        std::vector<int> kinds;
    } target;
    std::vector<DesignObject> objects;
    for (int kind = 0; kind < 256; ++kind)
        objects.emplace_back(static_cast<unsigned char>(kind));
    std::vector<iKDS::IObject*> list;
    for (DesignObject& object : objects)
        list.push_back(&object);

    Metrics::_UTImpl::ConversionRegistrator(target).walk(list);
    EXPECT_EQ(target.kinds, (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

} // namespace
