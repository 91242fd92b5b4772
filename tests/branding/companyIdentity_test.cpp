#include "tests/branding/BrandingTest.h"

namespace zorvo {

using GetCompanyIDTest = BrandingTest;
using CompanySettingPrefixTest = BrandingTest;

TEST_F(GetCompanyIDTest, StoresTheDefaultCompanyWhenNoneIsSet)
{
    ASSERT_EQ(sessionState().gsCompanyID, "");
    EXPECT_EQ(GetCompanyID(), "Zorvo");
    EXPECT_EQ(sessionState().gsCompanyID, "Zorvo");
}

TEST_F(GetCompanyIDTest, GivesTheStoredCompanyExactlyAsItCame)
{
    StoreCompanyID(" oTr ");
    EXPECT_EQ(GetCompanyID(), " oTr ");
}

TEST_F(GetCompanyIDTest, FallsBackOnTheDefaultCompanyWhenAnEmptyOneIsStored)
{
    StoreCompanyID("ABC");
    StoreCompanyID("");
    EXPECT_EQ(GetCompanyID(), "Zorvo");
}

TEST_F(CompanySettingPrefixTest, IsEmptyForTheDefaultCompany)
{
    EXPECT_EQ(CompanySettingPrefix(), "");
    StoreCompanyID("Zorvo");
    EXPECT_EQ(CompanySettingPrefix(), "");
}

TEST_F(CompanySettingPrefixTest, IsTheAcronymOfAnyOtherCompany)
{
    StoreCompanyID("OTR");
    EXPECT_EQ(CompanySettingPrefix(), "OTR");
    StoreCompanyID("zorvo");
    EXPECT_EQ(CompanySettingPrefix(), "zorvo");
}

} // namespace zorvo
