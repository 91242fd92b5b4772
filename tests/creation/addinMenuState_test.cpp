#include "creation/addinMenuState.h"

#include "branding/companyIdentity.h"
#include "creation/HasSWDProducts.h"
#include "tests/creation/CreationTest.h"
#include "tree/treeState.h"

namespace zorvo {
namespace {

class AddinMenuState : public CreationTest {
protected:
    const std::string sKey = "Software\\Zorvo\\QBN";
};

TEST_F(AddinMenuState, FirstReadOnAFreshAccountMakesTheKeyAndReportsOn)
{
    EXPECT_TRUE(GetAddinMenuState());
    EXPECT_TRUE(fakes.registry->hasKey(HKEY_CURRENT_USER, sKey));
    EXPECT_FALSE(fakes.registry->text(HKEY_CURRENT_USER, sKey, "TurnOffMenu"));
}

TEST_F(AddinMenuState, AValueAbsentFromTheKeyCountsAsOn)
{
    fakes.registry->addKey(HKEY_CURRENT_USER, sKey);
    EXPECT_TRUE(GetAddinMenuState());
}

TEST_F(AddinMenuState, OffInAnyCaseIsOffAndAnythingElseIsOn)
{
    for (const char* off : {"Off", "OFF", "off"}) {
        fakes.registry->setText(HKEY_CURRENT_USER, sKey, "TurnOffMenu", off);
        EXPECT_FALSE(GetAddinMenuState()) << off;
    }
    for (const char* on : {"On", "", "Offline", " Off"}) {
        fakes.registry->setText(HKEY_CURRENT_USER, sKey, "TurnOffMenu", on);
        EXPECT_TRUE(GetAddinMenuState()) << on;
    }
}

TEST_F(AddinMenuState, IsCutAtTheFirstZero)
{
    fakes.registry->setBytes(HKEY_CURRENT_USER, sKey, "TurnOffMenu", RegistryType::string,
                             std::string("Off\0rest", 8));
    EXPECT_FALSE(GetAddinMenuState());
}

TEST_F(AddinMenuState, AValueThatDoesNotFitItsBufferCountsAsOn)
{
    std::string sData = std::string("Off") + std::string(253, '\0');
    fakes.registry->setBytes(HKEY_CURRENT_USER, sKey, "TurnOffMenu", RegistryType::string, sData);
    EXPECT_FALSE(GetAddinMenuState());
    sData.push_back('\0');
    fakes.registry->setBytes(HKEY_CURRENT_USER, sKey, "TurnOffMenu", RegistryType::string, sData);
    EXPECT_TRUE(GetAddinMenuState());
}

TEST_F(AddinMenuState, WritesATextWithItsTerminatingZeroAndGivesBackTheState)
{
    fakes.registry->addKey(HKEY_CURRENT_USER, sKey);
    EXPECT_TRUE(SetAddinMenuState(true));
    EXPECT_EQ(fakes.registry->text(HKEY_CURRENT_USER, sKey, "TurnOffMenu"), "On");
    EXPECT_EQ(fakes.registry->type(HKEY_CURRENT_USER, sKey, "TurnOffMenu"), RegistryType::string);
    EXPECT_FALSE(SetAddinMenuState(false));
    EXPECT_EQ(fakes.registry->text(HKEY_CURRENT_USER, sKey, "TurnOffMenu"), "Off");

    std::unique_ptr<RegistryKey> key;
    ASSERT_EQ(fakes.registry->openKey(HKEY_CURRENT_USER, sKey, kKeyQueryValue, key), kRegistrySuccess);
    std::string sData;
    RegistryType type{};
    ASSERT_EQ(key->queryValue("TurnOffMenu", 256, sData, type), kRegistrySuccess);
    EXPECT_EQ(sData, std::string("Off\0", 4));
}

TEST_F(AddinMenuState, WithoutTheKeyNothingIsWritten)
{
    EXPECT_FALSE(SetAddinMenuState(true));
    EXPECT_FALSE(fakes.registry->hasKey(HKEY_CURRENT_USER, sKey));
}

TEST_F(AddinMenuState, AWriteThatFailsGivesFalse)
{
    fakes.registry->addKey(HKEY_CURRENT_USER, sKey);
    fakes.registry->failWrites(kRegistryAccessDenied);
    EXPECT_FALSE(SetAddinMenuState(true));
}

TEST_F(AddinMenuState, AKeyThatCannotBeReadCountsAsOn)
{
    fakes.registry->setText(HKEY_CURRENT_USER, sKey, "TurnOffMenu", "Off");
    fakes.registry->failOn(HKEY_CURRENT_USER, sKey, kRegistryAccessDenied);
    EXPECT_TRUE(GetAddinMenuState());
}

TEST_F(AddinMenuState, BelongsToTheCompany)
{
    fakes.registry->setText(HKEY_CURRENT_USER, sKey, "TurnOffMenu", "Off");
    StoreCompanyID("OTR");
    EXPECT_TRUE(GetAddinMenuState());
    SetAddinMenuState(false);
    EXPECT_EQ(fakes.registry->text(HKEY_CURRENT_USER, sKey, "OTRTurnOffMenu"), "Off");
    EXPECT_FALSE(GetAddinMenuState());
}

TEST(HasSWDProducts, LooksIntoTheStatusDocument)
{
    treeState() = TreeState();
    EXPECT_FALSE(HasSWDProducts());
    for (const bool bLibrary : {true, false}) {
        XmlDocument status;
        status.loadXML("<ZorvoMSOfficeProductsStatus><ProductGroup><ProductRegistryNode SWDType='" +
                       std::string(bLibrary ? "True" : "False") +
                       "'/></ProductGroup></ZorvoMSOfficeProductsStatus>");
        treeState().objStatusDoc = std::make_shared<StatusDocument>(status);
        EXPECT_EQ(HasSWDProducts(), bLibrary);
    }
    treeState() = TreeState();
}

} // namespace
} // namespace zorvo
