#include "platform/linux/LinuxSpecialFolders.h"

#include "base/RunTimeError.h"
#include "base/paths.h"
#include "base/text.h"
#include "platform/Files.h"
#include "platform/Registry.h"
#include "platform/linux/environmentFolders.h"
#include "platform/linux/nativeFiles.h"

#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>

namespace zorvo {

namespace {

constexpr const char* kShellFolders = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
constexpr mode_t kOthersMayWrite = S_IWGRP | S_IWOTH;

bool isFolder(const std::string& native)
{
    struct stat status {};
    return stat(native.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::string environmentText(const char* variable)
{
    const char* value = std::getenv(variable);
    return value != nullptr ? value : "";
}

std::string installedProgramFolder()
{
    char program[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", program, sizeof program);
    std::string folder(program, length > 0 ? static_cast<std::size_t>(length) : 0);
    for (int level = 0; level < 2 && !folder.empty(); ++level)
        folder.resize(folder.rfind('/') == std::string::npos ? 0 : folder.rfind('/'));
    return folder + "/share/zorvobrendle";
}

/// The value of `XDG_DOCUMENTS_DIR="$HOME/..."` in the user's list; empty when there is none.
std::string listedDocumentsFolder()
{
    constexpr std::string_view kName = "XDG_DOCUMENTS_DIR=\"";
    constexpr std::string_view kHome = "$HOME";
    constexpr std::size_t kLargestList = 1U << 20U;
    std::string list;
    try {
        list = '\n' + readWholeFile(configHomeFolder() + "/user-dirs.dirs", kLargestList);
    } catch (const RunTimeError&) { // a desktop without the list
        return {};
    }
    const std::size_t at = list.rfind('\n' + std::string(kName));
    if (at == std::string::npos)
        return {};
    const std::size_t first = at + 1 + kName.size();
    const std::size_t end = list.find_first_of("\"\n", first);
    std::string folder = end == std::string::npos ? std::string() : list.substr(first, end - first);
    if (folder == kHome || folder.starts_with(std::string(kHome) + '/'))
        folder.replace(0, kHome.size(), homeFolder());
    return folder;
}

/// A folder, no link, of this user's own that nobody else can write to or read.
bool isPrivateFolder(const std::string& native)
{
    struct stat status {};
    return lstat(native.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == geteuid() &&
           (status.st_mode & 0077U) == 0;
}

/// In such a folder nobody else can move or replace what is ours.
bool isSafeParent(const std::string& native)
{
    struct stat status {};
    if (stat(native.c_str(), &status) != 0 || !S_ISDIR(status.st_mode))
        return false;
    const bool bOwned = status.st_uid == geteuid() || status.st_uid == 0;
    return bOwned && ((status.st_mode & kOthersMayWrite) == 0 || (status.st_mode & S_ISVTX) != 0);
}

bool madePrivate(const std::string& native)
{
    mkdir(native.c_str(), 0700); // one that is there is looked at next
    return isPrivateFolder(native);
}

} // namespace

LinuxSpecialFolders::LinuxSpecialFolders(DosPaths paths)
    : paths_(std::move(paths))
{
}

std::string LinuxSpecialFolders::program()
{
    const std::string given = environmentText("ZORVOBRENDLE_PROGRAM_DIR");
    if (!programFolder_.empty() && given == programFolderGiven_)
        return programFolder_;
    programFolderGiven_ = given;
    for (const std::string& folder : {given, installedProgramFolder(), std::string(ZORVO_BUILD_PROGRAM_DIR)})
        if (folder.starts_with('/') && (isFolder(folder) || folder == given))
            return programFolder_ = shownFolder(folder);
    return {};
}

std::string LinuxSpecialFolders::documents()
{
    for (const std::string& folder : {environmentText("XDG_DOCUMENTS_DIR"), listedDocumentsFolder()})
        if (folder.starts_with('/'))
            return shownFolder(folder);
    return shownFolder(homeFolder());
}

std::string LinuxSpecialFolders::temporary()
{
    const std::string sRuntime = runtimeFolder();
    if (!sRuntime.empty() && isSafeParent(sRuntime) && madePrivate(sRuntime + "/zorvobrendle"))
        return withBackslash(shownFolder(sRuntime + "/zorvobrendle"));
    if (madeTemporary_.empty() || !isPrivateFolder(madeTemporary_)) {
        std::string sParent = environmentText("TMPDIR");
        if (!sParent.starts_with('/'))
            sParent = "/tmp";
        if (!isSafeParent(sParent))
            throw RunTimeError(kPathOrFileAccess);
        madeTemporary_ = sParent + "/zorvobrendle-" + std::to_string(geteuid());
        if (!madePrivate(madeTemporary_)) {
            madeTemporary_ = sParent + "/zorvobrendle-XXXXXX";
            if (mkdtemp(madeTemporary_.data()) == nullptr) {
                madeTemporary_.clear();
                throw RunTimeError(kPathOrFileAccess);
            }
        }
    }
    return withBackslash(shownFolder(madeTemporary_));
}

std::string LinuxSpecialFolders::special(int id)
{
    switch (id) {
    case kDocuments:
        return documents();
    case kNetworkNeighbourhood: // where the desktop shows the folders of other machines
        return shownFolder(runtimeFolder().empty() ? homeFolder() + "/.gvfs" : runtimeFolder() + "/gvfs");
    case kInternetCache:
        return shownFolder(cacheHomeFolder());
    default:
        return {};
    }
}

std::string LinuxSpecialFolders::current()
{
    char folder[PATH_MAX];
    return getcwd(folder, sizeof folder) != nullptr ? shownFolder(folder) : std::string();
}

std::string LinuxSpecialFolders::shownFolder(const std::string& native) const
{
    return paths_.fromNative(native);
}

bool writeAppDataFolder(Registry& registry, Files& files)
{
    std::unique_ptr<RegistryKey> key;
    const std::int32_t status = registry.openKey(HKEY_CURRENT_USER, kShellFolders, kKeyQueryValue, key);
    if (status != kRegistryFileNotFound)
        return status == kRegistrySuccess;
    if (registry.createKey(HKEY_CURRENT_USER, kShellFolders, key) != kRegistrySuccess)
        return false;
    const std::string sFolder = files.fromNative(configHomeFolder());
    return key->setValue("AppData", RegistryType::string, sFolder + '\0') == kRegistrySuccess;
}

} // namespace zorvo
