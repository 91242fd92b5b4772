#include "shell/Settings.h"

#include "base/RunTimeError.h"
#include "base/sessionState.h"
#include "branding/companyIdentity.h"
#include "tests/fakes/installFakePlatform.h"

#include <gtest/gtest.h>

#include <array>
#include <string_view>

namespace zorvo {
namespace {

constexpr std::array kSettingKeys = {"ShowCurrentOnly", "IncludeAllOfferings", "DisplaySplash",
                                     "ShowViewOnTB"};
constexpr const char* kMenuKey = "Software\\Zorvo\\QBN";

class SettingsTest : public testing::Test {
protected:
    SettingsTest() { sessionState() = SessionState(); }
    ~SettingsTest() override { sessionState() = SessionState(); }

    static void setSession(bool bCurrentOnly, bool bAllOfferings, bool bSplash, bool bMenu, bool bView)
    {
        SessionState& session = sessionState();
        session.bShowCurrentOnly = bCurrentOnly;
        session.bIncludeAllOfferings = bAllOfferings;
        session.bDisplaySplash = bSplash;
        session.bMenuState = bMenu;
        session.bShowViewOnTB = bView;
    }

    static void expectSession(bool bCurrentOnly, bool bAllOfferings, bool bSplash, bool bMenu, bool bView)
    {
        const SessionState& session = sessionState();
        EXPECT_EQ(session.bShowCurrentOnly, bCurrentOnly);
        EXPECT_EQ(session.bIncludeAllOfferings, bAllOfferings);
        EXPECT_EQ(session.bDisplaySplash, bSplash);
        EXPECT_EQ(session.bMenuState, bMenu);
        EXPECT_EQ(session.bShowViewOnTB, bView);
    }

    std::vector<std::string> keysRead() const
    {
        std::vector<std::string> keys;
        for (const FakeSettings::Access& access : fakes.settings->read) {
            EXPECT_EQ(access.sApplication, "ZorvoBrendle");
            EXPECT_EQ(access.sSection, "Settings");
            keys.push_back(access.sKey);
        }
        return keys;
    }

    const FakePlatform fakes;
};

TEST_F(SettingsTest, AFreshAccountHasTheDefaults)
{
    setSession(false, true, false, false, true);
    LoadSettings();
    expectSession(true, false, true, true, false);
}

TEST_F(SettingsTest, TheFirstReadMakesTheMenuKeyAndTheMenuIsOn)
{
    ASSERT_FALSE(fakes.registry->hasKey(HKEY_CURRENT_USER, kMenuKey));
    sessionState().bMenuState = false;
    LoadSettings();
    EXPECT_TRUE(sessionState().bMenuState);
    EXPECT_TRUE(fakes.registry->hasKey(HKEY_CURRENT_USER, kMenuKey));
}

TEST_F(SettingsTest, StoredValuesAreRead)
{
    fakes.settings->put("ShowCurrentOnly", "False");
    fakes.settings->put("IncludeAllOfferings", "True");
    fakes.settings->put("DisplaySplash", "False");
    fakes.settings->put("ShowViewOnTB", "True");
    fakes.registry->setText(HKEY_CURRENT_USER, kMenuKey, "TurnOffMenu", "Off");
    LoadSettings();
    expectSession(false, true, false, false, true);
}

TEST_F(SettingsTest, EachValueComesFromItsOwnKey)
{
    for (const std::string_view sKey : kSettingKeys) {
        for (const char* sOther : kSettingKeys)
            fakes.settings->put(sOther, sKey == sOther ? "True" : "False");
        LoadSettings();
        expectSession(sKey == "ShowCurrentOnly", sKey == "IncludeAllOfferings", sKey == "DisplaySplash", true,
                      sKey == "ShowViewOnTB");
    }
}

TEST_F(SettingsTest, TheFiveArgumentsAreFilledInTheirOrder)
{
    fakes.settings->put("ShowCurrentOnly", "False");
    fakes.settings->put("IncludeAllOfferings", "True");
    fakes.registry->setText(HKEY_CURRENT_USER, kMenuKey, "TurnOffMenu", "Off");
    bool bCurrentOnly = true;
    bool bAllOfferings = false;
    bool bSplash = false;
    bool bMenu = true;
    bool bView = true;
    LoadSettings(bCurrentOnly, bAllOfferings, bSplash, bMenu, bView);
    EXPECT_FALSE(bCurrentOnly);
    EXPECT_TRUE(bAllOfferings);
    EXPECT_TRUE(bSplash);
    EXPECT_FALSE(bMenu);
    EXPECT_FALSE(bView);
    EXPECT_EQ(keysRead(), (std::vector<std::string>{"ShowCurrentOnly", "IncludeAllOfferings", "DisplaySplash",
                                                    "ShowViewOnTB"}));
}

/// Notes how many looks the registry had seen when a key was read or written.
class WatchingSettings : public FakeSettings {
public:
    explicit WatchingSettings(const FakeRegistry& registry)
        : registry_(registry)
    {
    }
    std::optional<std::string> get(const std::string& application, const std::string& section,
                                   const std::string& key) override
    {
        note(key);
        return FakeSettings::get(application, section, key);
    }
    void set(const std::string& application, const std::string& section, const std::string& key,
             const std::string& value) override
    {
        note(key);
        FakeSettings::set(application, section, key, value);
    }

    std::vector<std::string> notes;

private:
    void note(const std::string& key)
    {
        notes.push_back(key + (registry_.opened.empty() ? " before the menu" : " after the menu"));
    }

    const FakeRegistry& registry_;
};

TEST_F(SettingsTest, TheMenuStateComesBetweenTheThirdAndTheLastSetting)
{
    const auto settings = std::make_shared<WatchingSettings>(*fakes.registry);
    platform().settings = settings;
    const std::vector<std::string> order = {"ShowCurrentOnly before the menu",
                                            "IncludeAllOfferings before the menu",
                                            "DisplaySplash before the menu", "ShowViewOnTB after the menu"};
    LoadSettings();
    EXPECT_EQ(settings->notes, order);
    settings->notes.clear();
    fakes.registry->opened.clear();
    SaveSettings();
    EXPECT_EQ(settings->notes, order);
}

TEST_F(SettingsTest, ValuesThatAreNeitherNumbersNorTrueReadAsFalse)
{
    for (const char* sKey : kSettingKeys)
        fakes.settings->put(sKey, "perhaps");
    LoadSettings();
    expectSession(false, false, false, true, false);
}

TEST_F(SettingsTest, SavedValuesAreWrittenAsTrueOrFalseInTheirOrder)
{
    setSession(true, false, true, false, true);
    LoadSettings(); // makes the menu's key
    setSession(true, false, true, false, true);
    SaveSettings();
    std::vector<std::string> written;
    for (const FakeSettings::Access& access : fakes.settings->written) {
        EXPECT_EQ(access.sApplication, "ZorvoBrendle");
        EXPECT_EQ(access.sSection, "Settings");
        written.push_back(access.sKey + "=" + access.sValue);
    }
    EXPECT_EQ(written, (std::vector<std::string>{"ShowCurrentOnly=True", "IncludeAllOfferings=False",
                                                 "DisplaySplash=True", "ShowViewOnTB=True"}));
    EXPECT_EQ(fakes.registry->text(HKEY_CURRENT_USER, kMenuKey, "TurnOffMenu"), "Off");
}

TEST_F(SettingsTest, WhatIsSavedIsLoadedAgain)
{
    LoadSettings();
    setSession(false, true, false, false, true);
    SaveSettings();
    sessionState() = SessionState();
    LoadSettings();
    expectSession(false, true, false, false, true);
}

TEST_F(SettingsTest, EachCompanyKeepsItsOwnSet)
{
    LoadSettings();
    StoreCompanyID("ABC");
    setSession(false, true, false, false, true);
    SaveSettings();
    EXPECT_EQ(fakes.settings->value("ABCShowCurrentOnly"), "False");
    EXPECT_EQ(fakes.settings->value("ABCShowViewOnTB"), "True");
    EXPECT_EQ(fakes.settings->value("ShowCurrentOnly"), std::nullopt);
    EXPECT_EQ(fakes.registry->text(HKEY_CURRENT_USER, kMenuKey, "ABCTurnOffMenu"), "Off");
    LoadSettings();
    expectSession(false, true, false, false, true);
    StoreCompanyID("Zorvo");
    LoadSettings();
    expectSession(true, false, true, true, false);
}

TEST_F(SettingsTest, AReadOnlyStoreKeepsTheSessionUntilTheNextLoad)
{
    LoadSettings();
    fakes.settings->nFailWrites = kPathOrFileAccess;
    fakes.registry->failWrites(kRegistryAccessDenied);
    setSession(false, true, false, false, true);
    EXPECT_NO_THROW(SaveSettings());
    expectSession(false, true, false, false, true);
    LoadSettings();
    expectSession(true, false, true, true, false);
}

} // namespace
} // namespace zorvo
