#include "shell/Settings.h"

#include "base/sessionState.h"
#include "branding/brandedSettings.h"
#include "creation/addinMenuState.h"

namespace zorvo {

namespace {

bool bRead(const char* sKey, bool bDefault)
{
    return bGetBrandedSetting(kSettingsApplication, kSettingsSection, sKey, bDefault);
}

void write(const char* sKey, bool bValue)
{
    SaveBrandedSetting(kSettingsApplication, kSettingsSection, sKey, bValue ? "True" : "False");
}

} // namespace

void LoadSettings(bool& ShowCurrentOnly, bool& IncludeAllOfferings, bool& DisplaySplash, bool& MenuState,
                  bool& ShowViewOnTB)
{
    ShowCurrentOnly = bRead("ShowCurrentOnly", true);
    IncludeAllOfferings = bRead("IncludeAllOfferings", false);
    DisplaySplash = bRead("DisplaySplash", true);
    MenuState = GetAddinMenuState();
    ShowViewOnTB = bRead("ShowViewOnTB", false);
}

void LoadSettings()
{
    SessionState& session = sessionState();
    LoadSettings(session.bShowCurrentOnly, session.bIncludeAllOfferings, session.bDisplaySplash,
                 session.bMenuState, session.bShowViewOnTB);
}

void SaveSettings()
{
    const SessionState& session = sessionState();
    write("ShowCurrentOnly", session.bShowCurrentOnly);
    write("IncludeAllOfferings", session.bIncludeAllOfferings);
    write("DisplaySplash", session.bDisplaySplash);
    SetAddinMenuState(session.bMenuState);
    write("ShowViewOnTB", session.bShowViewOnTB);
}

} // namespace zorvo
