#pragma once

/// The program's few preferences, read and written as one set.
namespace zorvo {

/// The name under which the settings store keeps the program's settings, and the section they lie in.
inline constexpr const char* kSettingsApplication = "ZorvoBrendle";
inline constexpr const char* kSettingsSection = "Settings";

/// Fills the five values from the stores.
void LoadSettings(bool& ShowCurrentOnly, bool& IncludeAllOfferings, bool& DisplaySplash, bool& MenuState,
                  bool& ShowViewOnTB);

/// Fills the session's values.
void LoadSettings();

/// Writes the session's values. A failing write is silent.
void SaveSettings();

} // namespace zorvo
