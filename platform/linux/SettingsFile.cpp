#include "platform/linux/SettingsFile.h"

#include "base/RunTimeError.h"
#include "platform/linux/SettingsText.h"
#include "platform/linux/environmentFolders.h"
#include "platform/linux/nativeFiles.h"

#include <fcntl.h>

#include <cerrno>

namespace zorvo {

namespace {

constexpr std::size_t kLargestFile = 16U << 20U;

/// Empty for a file that isn't there; throws when it is but can't be read.
SettingsText readSettings(const std::string& file)
{
    try {
        return SettingsText(readWholeFile(file, kLargestFile));
    } catch (const RunTimeError& error) {
        if (error.number() == kFileNotFound)
            return SettingsText({});
        throw;
    }
}

/// For the readers: what can't be read has no settings.
SettingsText readableSettings(const std::string& file)
{
    try {
        return readSettings(file);
    } catch (const RunTimeError&) {
        return SettingsText({});
    }
}

} // namespace

SettingsFile::SettingsFile()
    : SettingsFile(configHomeFolder())
{
}

SettingsFile::SettingsFile(std::string folder, std::chrono::milliseconds patience)
    : folder_(std::move(folder))
    , patience_(patience)
{
}

std::optional<std::string> SettingsFile::get(const std::string& application, const std::string& section,
                                             const std::string& key)
{
    return readableSettings(fileOf(application)).get(section, key);
}

void SettingsFile::set(const std::string& application, const std::string& section, const std::string& key,
                       const std::string& value)
{
    const std::string file = fileOf(application);
    try {
        makeFolders(file.substr(0, file.rfind('/')), 0700);
        const std::string lockName = file + ".lock";
        const FileDescriptor lock(open(lockName.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOCTTY, 0600));
        if (!lock.isOpen())
            throwSystemError(errno);
        lockFile(lock.get(), patience_);
        SettingsText settings = readSettings(file);
        settings.set(section, key, value);
        const std::string bytes = settings.bytes();
        if (bytes.size() > kLargestFile) // it could never be read again
            throw RunTimeError(kPathOrFileAccess);
        replaceFile(file, 0600, bytes);
    } catch (const RunTimeError& error) {
        throw RunTimeError(error.number() == kDiskFull ? kDiskFull : kPathOrFileAccess);
    }
}

std::vector<std::pair<std::string, std::string>> SettingsFile::list(const std::string& application,
                                                                    const std::string& section)
{
    return readableSettings(fileOf(application)).list(section);
}

void SettingsFile::requireReadable(const std::string& application) const
{
    try {
        readSettings(fileOf(application));
    } catch (const RunTimeError&) {
        throw RunTimeError(kPathOrFileAccess, "The settings file " + fileOf(application) + " can't be read.");
    }
}

std::string SettingsFile::fileOf(const std::string& application) const
{
    constexpr std::string_view kForbidden("/\0", 2);
    const bool bFolderName = !application.empty() && application != "." && application != ".." &&
                             application.find_first_of(kForbidden) == std::string::npos;
    if (!bFolderName)
        throw RunTimeError(kInvalidCall);
    return folder_ + '/' + application + "/settings.ini";
}

} // namespace zorvo
