#include "client/SettingCommand.h"

#include "base/RunTimeError.h"
#include "client/exitCodes.h"
#include "client/failureLine.h"
#include "platform/linux/SettingsFile.h"

namespace zorvo {

namespace {

constexpr const char* kUsage = "usage: brendle setting list | get KEY | set KEY DATA";
constexpr const char* kApplication = "ZorvoBrendle";
constexpr const char* kSection = "Settings";

void list(SettingsFile& settings, std::ostream& out)
{
    settings.requireReadable(kApplication);
    for (const auto& [sKey, sValue] : settings.list(kApplication, kSection))
        out << sKey << '=' << sValue << '\n';
}

void get(SettingsFile& settings, const std::string& sKey, std::ostream& out)
{
    settings.requireReadable(kApplication);
    const auto value = settings.get(kApplication, kSection, sKey);
    if (!value)
        throw RunTimeError(kFileNotFound, "There is no setting " + sKey + '.');
    out << *value << '\n';
}

void set(SettingsFile& settings, const std::string& sKey, const std::string& sValue)
{
    try {
        settings.set(kApplication, kSection, sKey, sValue);
    } catch (const RunTimeError& error) {
        throw RunTimeError(error.number(), "The settings can't be written: " + error.description());
    }
}

} // namespace

int runSettingCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    const std::string sName = args.empty() ? std::string() : args[0];
    const bool bList = sName == "list" && args.size() == 1;
    const bool bGet = sName == "get" && args.size() == 2;
    const bool bSet = sName == "set" && args.size() == 3;
    if (!bList && !bGet && !bSet) {
        err << kUsage << '\n';
        return kExitWrongUsage;
    }
    try {
        SettingsFile settings;
        if (bList)
            list(settings, out);
        else if (bGet)
            get(settings, args[1], out);
        else
            set(settings, args[1], args[2]);
        return kExitDone;
    } catch (const RunTimeError& error) {
        err << oneLine(error.description()) << '\n';
        return kExitFailed;
    }
}

} // namespace zorvo
