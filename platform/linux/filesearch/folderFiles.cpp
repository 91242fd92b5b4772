#include "platform/linux/filesearch/folderFiles.h"

#include "base/text.h"
#include "platform/Keyword.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <memory>

namespace zorvo {

namespace {

constexpr std::int64_t kNanoseconds = 1'000'000'000;

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};

bool isOwnerFile(const std::string& sName)
{
    return sName.starts_with("~$") || sName.starts_with(".~lock.");
}

/// Sorted by the first, which then isn't needed any more.
struct Named {
    std::string sUpper;
    FolderFile file;

    bool operator<(const Named& other) const
    {
        return sUpper != other.sUpper ? sUpper < other.sUpper : file.sName < other.file.sName;
    }
};

std::vector<Named> readFolder(DIR* folder, const std::string& sPattern)
{
    const WordPattern pattern(upperCase(sPattern.empty() ? "*" : sPattern));
    std::vector<Named> files;
    while (const dirent* entry = readdir(folder)) {
        Named named{{}, {entry->d_name, 0, 0}};
        named.sUpper = upperCase(named.file.sName);
        if (!pattern.matches(named.sUpper) || isOwnerFile(named.file.sName))
            continue;
        struct stat status {};
        if (fstatat(dirfd(folder), entry->d_name, &status, 0) != 0 || !S_ISREG(status.st_mode))
            continue;
        named.file.nSize = static_cast<std::uint64_t>(status.st_size);
        named.file.nModified = status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec;
        files.push_back(std::move(named));
    }
    return files;
}

} // namespace

std::vector<FolderFile> filesOfFolder(const std::string& sFolder, const std::string& sPattern)
{
    const std::unique_ptr<DIR, CloseFolder> folder(opendir(sFolder.c_str()));
    if (!folder)
        return {};
    std::vector<Named> named = readFolder(folder.get(), sPattern);
    std::sort(named.begin(), named.end());
    std::vector<FolderFile> files;
    files.reserve(named.size());
    for (Named& one : named)
        files.push_back(std::move(one.file));
    return files;
}

} // namespace zorvo
