#include "platform/linux/office/fileDelivery.h"

#include "base/RunTimeError.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/SpecialFolders.h"
#include "platform/linux/nativeFiles.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>

namespace zorvo {

namespace {

constexpr mode_t kNewFileMode = 0666; // less the user's mask

std::string folderOf(const std::string& path)
{
    return path.substr(0, path.rfind('/') + 1);
}

bool isFolder(const std::string& path)
{
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// A file without a name, which vanishes with us; named ".…" where the file system has no such files.
class UnnamedFile {
public:
    explicit UnnamedFile(const std::string& folder)
        : file_(open(folder.c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, kNewFileMode))
    {
        static std::atomic<unsigned> counter{0};
        if (file_.isOpen())
            return;
        if (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL)
            throwSystemError(errno);
        name_ = folder + ".zorvo-" + std::to_string(getpid()) + "-new" + std::to_string(counter++) + ".tmp";
        file_ = FileDescriptor(open(name_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileMode));
        if (!file_.isOpen())
            throwSystemError(errno);
    }
    ~UnnamedFile()
    {
        if (!name_.empty())
            unlink(name_.c_str());
    }
    UnnamedFile(const UnnamedFile&) = delete;
    UnnamedFile& operator=(const UnnamedFile&) = delete;

    int descriptor() const { return file_.get(); }

    /// Fails when the name is taken: this is the test and the act in one.
    void giveName(const std::string& target) const
    {
        const std::string self = "/proc/self/fd/" + std::to_string(file_.get());
        const std::string& from = name_.empty() ? self : name_;
        const int flags = name_.empty() ? AT_SYMLINK_FOLLOW : 0;
        if (linkat(AT_FDCWD, from.c_str(), AT_FDCWD, target.c_str(), flags) == 0)
            return;
        const bool bNoLinks = errno == EPERM || errno == EOPNOTSUPP;
        if (bNoLinks && renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0)
            return;
        if (errno == EEXIST)
            throw RunTimeError(kFileAlreadyExists);
        throwSystemError(errno);
    }

private:
    FileDescriptor file_;
    std::string name_;
};

void makeNewFile(const std::string& bytes, const std::string& target)
{
    const UnnamedFile file(folderOf(target));
    writeAll(file.descriptor(), bytes);
    if (fsync(file.descriptor()) != 0)
        throwSystemError(errno);
    file.giveName(target);
}

} // namespace

StagedFile::StagedFile()
{
    static std::atomic<unsigned> counter{0};
    const std::string folder = platform().files->toNative(platform().folders->temporary());
    path_ = folder + (folder.ends_with('/') ? "" : "/") + "office-" + std::to_string(getpid()) + '-' +
            std::to_string(counter++);
    unlink(path_.c_str());
}

StagedFile::~StagedFile()
{
    unlink(path_.c_str());
}

bool StagedFile::isDiskFull() const
{
    constexpr unsigned long kLeast = 256U << 10U;
    struct statvfs figures {};
    return statvfs(folderOf(path_).c_str(), &figures) == 0 && figures.f_bavail * figures.f_frsize < kLeast;
}

void checkTarget(const std::string& target, Existing existing)
{
    if (!isFolder(folderOf(target)))
        throw RunTimeError(kPathNotFound);
    struct stat status {};
    if (lstat(target.c_str(), &status) != 0)
        return;
    if (existing == Existing::keep)
        throw RunTimeError(kFileAlreadyExists);
    constexpr mode_t kAnyWrite = 0222;
    if (!S_ISLNK(status.st_mode) && (status.st_mode & kAnyWrite) == 0)
        throw RunTimeError(kPermissionDenied);
}

void deliverFile(const std::string& source, const std::string& target, Existing existing)
{
    checkTarget(target, existing);
    const std::string bytes = readWholeFile(source);
    if (existing == Existing::keep)
        makeNewFile(bytes, target);
    else
        replaceFile(target, kNewFileMode, bytes);
}

} // namespace zorvo
