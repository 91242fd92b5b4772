#include "shell/mainGeometry.h"

#include "base/RunTimeError.h"
#include "base/sessionState.h"
#include "tests/fakes/installFakePlatform.h"

#include <gmock/gmock.h>

namespace zorvo {
namespace {

using testing::ElementsAre;

class MainGeometryTest : public testing::Test {
protected:
    MainGeometryTest() { sessionState() = SessionState(); }
    ~MainGeometryTest() override { sessionState() = SessionState(); }

    void store(const std::string& sKey, const std::string& sValue)
    {
        fakes.settings->set("ZorvoBrendle", "Settings", sKey, sValue);
    }
    std::optional<std::string> stored(const std::string& sKey)
    {
        return fakes.settings->get("ZorvoBrendle", "Settings", sKey);
    }
    void storePlace()
    {
        store("MainLeft", "300");
        store("MainTop", "450");
        store("MainWidth", "12000");
        store("MainHeight", "9000");
    }

    /// Keys read by a restore, in order.
    std::vector<std::string> keysRead()
    {
        fakes.settings->read.clear();
        restoreMainGeometry();
        std::vector<std::string> keys;
        for (const FakeSettings::Access& each : fakes.settings->read)
            keys.push_back(each.sKey);
        return keys;
    }

    const FakePlatform fakes;
};

TEST_F(MainGeometryTest, WithNothingStoredTheFormOpensMaximised)
{
    const MainGeometry geometry = restoreMainGeometry();
    EXPECT_EQ(geometry.state, WindowState::maximised);
    EXPECT_FALSE(geometry.place.has_value());
}

TEST_F(MainGeometryTest, AStoredNormalStateOpensInTheStoredPlace)
{
    storePlace();
    store("MainState", "0");
    const MainGeometry geometry = restoreMainGeometry();
    EXPECT_EQ(geometry.state, WindowState::normal);
    ASSERT_TRUE(geometry.place.has_value());
    EXPECT_EQ(geometry.place->nLeft, 300);
    EXPECT_EQ(geometry.place->nTop, 450);
    EXPECT_EQ(geometry.place->nWidth, 12000);
    EXPECT_EQ(geometry.place->nHeight, 9000);
}

TEST_F(MainGeometryTest, AStoredMinimisedStateOpensNormalInTheStoredPlace)
{
    storePlace();
    store("MainState", "1");
    EXPECT_EQ(restoreMainGeometry().state, WindowState::normal);
    EXPECT_TRUE(restoreMainGeometry().place.has_value());
}

TEST_F(MainGeometryTest, AStoredMaximisedStateLeavesTheStoredPlaceUnused)
{
    storePlace();
    store("MainState", "2");
    EXPECT_EQ(restoreMainGeometry().state, WindowState::maximised);
    EXPECT_FALSE(restoreMainGeometry().place.has_value());
}

TEST_F(MainGeometryTest, AHeightOrWidthOf199OpensMaximisedAnd200DoesNot)
{
    storePlace();
    store("MainHeight", "199");
    EXPECT_EQ(restoreMainGeometry().state, WindowState::maximised);
    store("MainHeight", "200");
    EXPECT_EQ(restoreMainGeometry().state, WindowState::normal);
    store("MainWidth", "199");
    EXPECT_EQ(restoreMainGeometry().state, WindowState::maximised);
    store("MainWidth", "200");
    EXPECT_EQ(restoreMainGeometry().state, WindowState::normal);
}

TEST_F(MainGeometryTest, NoMoreIsReadThanIsNeeded)
{
    storePlace();
    EXPECT_THAT(keysRead(), ElementsAre("MainState", "MainLeft", "MainTop", "MainHeight", "MainWidth"));
    store("MainHeight", "199");
    EXPECT_THAT(keysRead(), ElementsAre("MainState", "MainLeft", "MainTop", "MainHeight"));
    store("MainState", "2");
    EXPECT_THAT(keysRead(), ElementsAre("MainState"));
}

TEST_F(MainGeometryTest, AStateThatIsNoneOfTheThreeOpensNormalInTheStoredPlace)
{
    storePlace();
    for (const char* sState : {"3", "-1", "elsewhere"}) {
        store("MainState", sState);
        EXPECT_EQ(restoreMainGeometry().state, WindowState::normal) << sState;
    }
}

TEST_F(MainGeometryTest, AMinimisedStateWithNoPlaceOpensMaximised)
{
    store("MainState", "1");
    EXPECT_EQ(restoreMainGeometry().state, WindowState::maximised);
}

TEST_F(MainGeometryTest, ANumberPast16BitsIsAnOverflow)
{
    for (const char* sKey : {"MainState", "MainLeft", "MainTop", "MainHeight", "MainWidth"}) {
        storePlace();
        store("MainState", "0");
        store(sKey, "32768");
        try {
            restoreMainGeometry();
            ADD_FAILURE() << sKey;
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), kOverflow) << sKey;
        }
    }
}

TEST_F(MainGeometryTest, ClosingWhileMinimisedKeepsTheStoredPlaceAndStoresTheState)
{
    storePlace();
    saveMainGeometry(WindowState::minimised, {1, 2, 3, 4});
    EXPECT_EQ(stored("MainLeft"), "300");
    EXPECT_EQ(stored("MainHeight"), "9000");
    EXPECT_EQ(stored("MainState"), "1");
}

TEST_F(MainGeometryTest, AMaximisedFormStoresItsMaximisedSize)
{
    storePlace();
    saveMainGeometry(WindowState::maximised, {0, 0, 28800, 16200});
    EXPECT_EQ(stored("MainWidth"), "28800");
    EXPECT_EQ(stored("MainState"), "2");
}

TEST_F(MainGeometryTest, ALengthPast16BitsIsStoredAsTheLargestThatFits)
{
    saveMainGeometry(WindowState::maximised, {-40000, 0, 57600, 32400});
    EXPECT_EQ(stored("MainWidth"), "32767");
    EXPECT_EQ(stored("MainLeft"), "-32768");
    EXPECT_NO_THROW(restoreMainGeometry());
}

TEST_F(MainGeometryTest, EachCompanyKeepsItsOwnPlace)
{
    storePlace();
    sessionState().gsCompanyID = "OTR";
    EXPECT_EQ(restoreMainGeometry().state, WindowState::maximised);
    saveMainGeometry(WindowState::normal, {15, 30, 6000, 4500});
    EXPECT_EQ(stored("OTRMainWidth"), "6000");
    EXPECT_EQ(stored("MainWidth"), "12000");
}

} // namespace
} // namespace zorvo
