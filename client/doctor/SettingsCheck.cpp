#include "client/doctor/SettingsCheck.h"

#include "base/RunTimeError.h"
#include "base/numbers.h"
#include "base/text.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/SettingsStore.h"

#include <algorithm>
#include <array>
#include <string>

namespace zorvo {

namespace {

constexpr std::array kSwitches = {"ShowCurrentOnly", "IncludeAllOfferings", "DisplaySplash", "ShowViewOnTB"};
constexpr std::array kNumbers = {"MainState", "MainLeft", "MainTop", "MainWidth", "MainHeight"};

/// Any company's setting of one of these keys: the stored key begins with the company.
template <typename Keys>
bool isOneOf(const std::string& sKey, const Keys& keys)
{
    return std::any_of(keys.begin(), keys.end(),
                       [&sKey](const char* sName) { return endsWithNoCase(sKey, sName); });
}

std::vector<Fault> switchFaults(const std::string& sKey, const std::string& sValue)
{
    if (isNumeric(sValue) || equalNoCase(sValue, "True") || equalNoCase(sValue, "False"))
        return {};
    return {{"setting.switch", "The setting " + sKey + " is neither True nor False and counts as False"}};
}

std::vector<Fault> numberFaults(const std::string& sKey, const std::string& sValue)
{
    if (!isNumeric(sValue))
        return {{"setting.number", "The setting " + sKey + " is no number and counts as 0"}};
    try {
        toInteger(sValue);
        return {};
    } catch (const RunTimeError&) {
        return {{"setting.number", "The setting " + sKey + " is so large that the window can't open"}};
    }
}

std::vector<Fault> folderFaults(const std::string& sKey, const std::string& sValue)
{
    if (sValue.empty() || platform().files->folderExists(sValue))
        return {};
    return {{"setting.folder", "The folder of the setting " + sKey + " isn't there",
             platform().files->toNative(sValue)}};
}

std::vector<Fault> faultsOf(const std::string& sKey, const std::string& sValue)
{
    if (isOneOf(sKey, kSwitches))
        return switchFaults(sKey, sValue);
    if (isOneOf(sKey, kNumbers))
        return numberFaults(sKey, sValue);
    return endsWithNoCase(sKey, "DocumentFolder") ? folderFaults(sKey, sValue) : std::vector<Fault>();
}

} // namespace

DiagnosisSection checkSettings()
{
    DiagnosisSection section{"settings"};
    for (const auto& [sKey, sValue] : platform().settings->list("ZorvoBrendle", "Settings"))
        section.items.push_back({sKey, {{"value", sValue}}, faultsOf(sKey, sValue)});
    return section;
}

} // namespace zorvo
