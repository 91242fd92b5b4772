#include "platform/linux/office/PrivateProfile.h"

#include "platform/linux/environmentFolders.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>

namespace zorvo {

namespace {

namespace fs = std::filesystem;

std::string profilesFolder()
{
    return cacheHomeFolder() + "/zorvobrendle/office";
}

std::string lockFileOf(const std::string& profile)
{
    return profile + "/in-use";
}

std::string socketListOf(const std::string& profile)
{
    return profile + "/sockets";
}

/// Open only when nobody else holds it.
FileDescriptor takeLock(const std::string& profile)
{
    FileDescriptor file(open(lockFileOf(profile).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (file.isOpen() && flock(file.get(), LOCK_EX | LOCK_NB) == 0)
        return file;
    return FileDescriptor();
}

void removeProfile(const std::string& profile)
{
    std::ifstream sockets(socketListOf(profile));
    std::string path;
    struct stat status {};
    while (std::getline(sockets, path))
        if (stat(path.c_str(), &status) == 0 && S_ISSOCK(status.st_mode))
            unlink(path.c_str());
    std::error_code ignored;
    fs::remove_all(profile, ignored);
}

void removeLeftProfiles()
{
    std::error_code ignored;
    for (const fs::directory_entry& entry : fs::directory_iterator(profilesFolder(), ignored)) {
        const std::string profile = entry.path().string();
        if (entry.is_directory(ignored) && takeLock(profile).isOpen())
            removeProfile(profile);
    }
}

void writeText(const std::string& file, const std::string& text)
{
    const FileDescriptor target(open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600));
    if (!target.isOpen())
        throwSystemError(errno);
    writeAll(target.get(), text);
}

std::string configItem(const std::string& path, const std::string& name, const std::string& value)
{
    return "<item oor:path=\"" + path + "\"><prop oor:name=\"" + name + "\" oor:op=\"fuse\"><value>" + value +
           "</value></prop></item>\n";
}

/// What a first start would find out with a second one is told beforehand. The documents' own folders get no
/// lock files, and nothing of the office's comfort for people runs.
std::string configuration(const OfficeInstallation& office)
{
    const std::string common = "/org.openoffice.Office.Common";
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<oor:items xmlns:oor=\"http://openoffice.org/2001/registry\" "
           "xmlns:xs=\"http://www.w3.org/2001/XMLSchema\" "
           "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\">\n" +
           configItem("/org.openoffice.Setup/Product", "ooSetupLastVersion", office.sVersion) +
           configItem("/org.openoffice.Setup/Office", "ooSetupInstCompleted", "true") +
           configItem(common + "/Misc", "FirstRun", "false") +
           configItem(common + "/Misc", "UseLocking", "false") +
           configItem(common + "/Misc", "UseDocumentSystemFileLocking", "false") +
           configItem(common + "/Misc", "UseDocumentOOoLockFile", "false") +
           configItem(common + "/Security/Scripting", "MacroSecurityLevel", "3") +
           configItem("/org.openoffice.Office.Recovery/AutoSave", "Enabled", "false") + "</oor:items>\n";
}

} // namespace

PrivateProfile::PrivateProfile(const OfficeInstallation& office)
{
    static std::atomic<unsigned> counter{0};
    makeFolders(profilesFolder(), 0700);
    // Nobody may take a profile that is just being made for a left one.
    const std::string gate = profilesFolder() + "/making";
    const FileDescriptor making(open(gate.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (!making.isOpen())
        throwSystemError(errno);
    lockFile(making.get(), std::chrono::seconds(10));
    removeLeftProfiles();
    folder_ = profilesFolder() + '/' + std::to_string(getpid()) + '-' + std::to_string(counter++);
    removeProfile(folder_);
    if (mkdir(folder_.c_str(), 0700) != 0)
        throwSystemError(errno);
    lock_ = takeLock(folder_);
    makeFolders(temporaryFolder(), 0700);
    makeFolders(folder_ + "/user/extensions", 0700);
    writeText(folder_ + "/user/extensions/buildid", office.sBuild);
    writeText(folder_ + "/user/registrymodifications.xcu", configuration(office));
}

PrivateProfile::~PrivateProfile()
{
    removeProfile(folder_);
}

void PrivateProfile::noteSockets(const std::vector<std::string>& paths)
{
    std::string text;
    for (const std::string& path : paths)
        text += path + '\n';
    writeText(socketListOf(folder_), text);
}

} // namespace zorvo
