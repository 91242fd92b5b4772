#include "branding/brandedSettings.h"

#include "base/RunTimeError.h"
#include "tests/branding/BrandingTest.h"

namespace zorvo {

class BrandedSettings : public BrandingTest {
protected:
    void put(const std::string& sValue) { fakes.settings->put("Key", sValue); }
    static bool asBoolean(bool bDefault = false)
    {
        return bGetBrandedSetting("ZorvoBrendle", "Settings", "Key", bDefault);
    }
    static std::int16_t asNumber(std::int16_t nDefault = 7)
    {
        return nGetBrandedSetting("ZorvoBrendle", "Settings", "Key", nDefault);
    }
};

TEST_F(BrandedSettings, AbsentKeysGiveTheDefault)
{
    EXPECT_TRUE(asBoolean(true));
    EXPECT_FALSE(asBoolean(false));
    EXPECT_EQ(asNumber(7), 7);
    EXPECT_EQ(asNumber(-32768), -32768);
}

TEST_F(BrandedSettings, TrueIsReadInAnySpelling)
{
    for (const char* sValue : {"True", "TRUE", "true", "tRuE"}) {
        put(sValue);
        EXPECT_TRUE(asBoolean()) << sValue;
    }
}

TEST_F(BrandedSettings, NumbersOtherThanZeroAreTrue)
{
    for (const char* sValue : {"1", "-1", " 2 ", "0.5", "1e3", "70000", "1e999"}) {
        put(sValue);
        EXPECT_TRUE(asBoolean()) << sValue;
    }
    for (const char* sValue : {"0", "-0", "0.0", "0e5", " 0 "}) {
        put(sValue);
        EXPECT_FALSE(asBoolean(true)) << sValue;
    }
}

TEST_F(BrandedSettings, AnythingElseIsFalseWhateverTheDefault)
{
    for (const char* sValue : {"False", "Yes", "On", "", " True", "True ", "1,000", "0x1"}) {
        put(sValue);
        EXPECT_FALSE(asBoolean(true)) << '"' << sValue << '"';
    }
}

TEST_F(BrandedSettings, NumbersAreReadAsSixteenBits)
{
    put("32767");
    EXPECT_EQ(asNumber(), 32767);
    put("-32768");
    EXPECT_EQ(asNumber(), -32768);
    put(" 12 ");
    EXPECT_EQ(asNumber(), 12);
}

TEST_F(BrandedSettings, FractionsRoundHalfToEven)
{
    put("2.5");
    EXPECT_EQ(asNumber(), 2);
    put("3.5");
    EXPECT_EQ(asNumber(), 4);
}

TEST_F(BrandedSettings, TextsThatAreNoNumbersGiveTheDefault)
{
    for (const char* sValue : {"", "abc", "12px", "1,000", "True", "0x10", "--1"}) {
        put(sValue);
        EXPECT_EQ(asNumber(7), 7) << sValue;
    }
}

TEST_F(BrandedSettings, NumbersPastSixteenBitsOverflow)
{
    for (const char* sValue : {"32768", "-32769", "1e999", "99999999999"}) {
        put(sValue);
        try {
            asNumber();
            ADD_FAILURE() << sValue << " was taken";
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), kOverflow) << sValue;
        }
    }
}

TEST_F(BrandedSettings, TheDefaultCompanyHasPlainKeys)
{
    EXPECT_EQ(SaveBrandedSetting("App", "Section", "ShowCurrentOnly", "True"), 0);
    ASSERT_EQ(fakes.settings->written.size(), 1U);
    EXPECT_EQ(fakes.settings->written[0].sApplication, "App");
    EXPECT_EQ(fakes.settings->written[0].sSection, "Section");
    EXPECT_EQ(fakes.settings->written[0].sKey, "ShowCurrentOnly");
    EXPECT_EQ(fakes.settings->written[0].sValue, "True");
}

TEST_F(BrandedSettings, AnotherCompanyHasASetOfItsOwn)
{
    StoreCompanyID("ABC");
    fakes.settings->put("Key", "1");
    fakes.settings->put("ABCKey", "2");
    EXPECT_EQ(asNumber(), 2);
    EXPECT_EQ(fakes.settings->read.back().sKey, "ABCKey");
    asBoolean();
    EXPECT_EQ(fakes.settings->read.back().sKey, "ABCKey");
    SaveBrandedSetting("ZorvoBrendle", "Settings", "Key", "3");
    EXPECT_EQ(fakes.settings->value("ABCKey"), "3");
    EXPECT_EQ(fakes.settings->value("Key"), "1");
}

TEST_F(BrandedSettings, AFailingWriteIsSilentAndStillGivesZero)
{
    fakes.settings->nFailWrites = kPathOrFileAccess;
    EXPECT_EQ(SaveBrandedSetting("ZorvoBrendle", "Settings", "Key", "1"), 0);
    EXPECT_EQ(fakes.settings->value("Key"), std::nullopt);
    EXPECT_TRUE(reports.empty());
}

TEST_F(BrandedSettings, EveryReadGoesToTheStore)
{
    put("1");
    EXPECT_EQ(asNumber(), 1);
    put("2");
    EXPECT_EQ(asNumber(), 2);
}

} // namespace zorvo
