#include "platform/machineAccess.h"

#include "base/failure.h"
#include "base/paths.h"
#include "base/text.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/SpecialFolders.h"

namespace zorvo {

namespace {
constexpr std::size_t kValueCapacity = 2048;
constexpr const char* kShellFolders = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
constexpr const char* kNoProgramFolder =
    "There is an error retrieving the Brendle Addins installation directory.\r\n\r\n"
    "Please first repair or then uninstall to re-install Zorvo's Brendle to fix.\r\n\r\n"
    "If this problem persists please contact Zorvo Support at (800) 555-0142.";
} // namespace

std::string GetZorvoPath(bool bAddBackslash)
{
    try {
        const std::string sFolder = sStripNull(platform().folders->program());
        if (sFolder.empty())
            throw RunTimeError(kTypeMismatch);
        return bAddBackslash ? withBackslash(sFolder) : sFolder;
    } catch (const RunTimeError& error) {
        recordFailure(error);
        ReportError("basBranding.GetZorvoPath", kNoProgramFolder);
        return {};
    }
}

bool bGetDocsFolder(std::string& sPath, const std::optional<std::string>& sSub, std::optional<bool> bCreate)
{
    sPath.clear();
    try {
        const std::string sFolder = platform().folders->documents();
        if (sFolder.empty())
            return false;
        sPath = sJoinPath(sFolder, sSub);
        if (bCreate)
            MakeNestedFolder(sPath);
        return true;
    } catch (const RunTimeError&) {
        sPath.clear();
        return false;
    }
}

std::string sGetAppDataFolder()
{
    return sGetRegValue(HKEY_CURRENT_USER, kShellFolders, "AppData");
}

std::string GetSpecialFolder(int nFolder)
{
    try {
        return cutAtNull(platform().folders->special(nFolder));
    } catch (const RunTimeError&) {
        return {};
    }
}

std::string sGetRegValue(Hive hHive, const std::string& sKey, const std::string& sValueName,
                         const std::optional<std::string>& vDefault)
{
    std::string sDefault = vDefault.value_or(std::string());
    std::unique_ptr<RegistryKey> key;
    if (platform().registry->openKey(hHive, sKey, kKeyQueryValue, key) != kRegistrySuccess)
        return sDefault;
    std::string sData;
    RegistryType type{};
    if (key->queryValue(sValueName, kValueCapacity, sData, type) != kRegistrySuccess)
        return sDefault;
    return sStripNull(sData);
}

bool bFileExists(const std::string& sPath)
{
    return !sPath.empty() && platform().files->fileExists(sPath);
}

void MakeNestedFolder(const std::string& sPath)
{
    Files& files = *platform().files;
    if (files.folderExists(sPath))
        return;
    const auto makeLevel = [&files](const std::string& sLevel) {
        try {
            files.makeFolder(sLevel);
        } catch (
            const RunTimeError&) { // a level that exists just fails; the last one's absence is seen later
        }
    };
    // The search starts past a drive root such as `C:\`.
    for (auto nAt = sPath.find('\\', 3); nAt != std::string::npos; nAt = sPath.find('\\', nAt + 1))
        makeLevel(sPath.substr(0, nAt));
    makeLevel(sPath);
}

void CopyFileMakingFolder(const std::string& sSource, const std::string& sTarget)
{
    MakeNestedFolder(sGetFilePath(sTarget));
    platform().files->copy(sSource, sTarget);
}

void DeleteFileQuietly(const std::string& sPath)
{
    try {
        platform().files->clearAttributes(sPath);
    } catch (const RunTimeError&) { // the deletion is still tried
    }
    try {
        platform().files->remove(sPath);
    } catch (const RunTimeError&) { // a file that can't go stays
    }
}

} // namespace zorvo
