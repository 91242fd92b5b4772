#include "platform/linux/nativeFiles.h"

#include "base/RunTimeError.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <memory>
#include <thread>
#include <utility>

namespace zorvo {

int errorNumberOf(int systemError)
{
    switch (systemError) {
    case ENOENT:
        return kFileNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
        return kPathNotFound;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return kDiskFull;
    case EACCES:
    case EPERM:
    case EAGAIN:
        return kPermissionDenied;
    default:
        return kPathOrFileAccess;
    }
}

void throwSystemError(int systemError)
{
    throw RunTimeError(errorNumberOf(systemError));
}

FileDescriptor::~FileDescriptor()
{
    if (descriptor_ >= 0)
        close(descriptor_);
}

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept
{
    std::swap(descriptor_, other.descriptor_);
    return *this;
}

int FileDescriptor::release()
{
    return std::exchange(descriptor_, -1);
}

FileDescriptor openPlainFile(const std::string& native)
{
    FileDescriptor file(open(native.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!file.isOpen())
        throwSystemError(errno);
    struct stat status {};
    if (fstat(file.get(), &status) != 0)
        throwSystemError(errno);
    if (!S_ISREG(status.st_mode))
        throw RunTimeError(kPathOrFileAccess);
    return file;
}

std::string readWholeFile(const std::string& native, std::size_t largest)
{
    constexpr std::size_t kLeastPiece = 4U << 10U;
    const FileDescriptor file = openPlainFile(native);
    struct stat status {};
    if (fstat(file.get(), &status) != 0)
        throwSystemError(errno);
    const auto size = static_cast<std::size_t>(status.st_size);
    if (size > largest)
        throw RunTimeError(kPathOrFileAccess);
    // The size is a hint: a file that grows is read to its end, and one of /proc has none. One byte more, so
    // that the end is seen without more room.
    std::string bytes(size + 1, '\0');
    std::size_t have = 0;
    for (;;) {
        if (have == bytes.size())
            bytes.resize(have + std::max(have, kLeastPiece));
        const ssize_t got = ::read(file.get(), bytes.data() + have, bytes.size() - have);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            throwSystemError(errno);
        have += static_cast<std::size_t>(got);
        if (have > largest)
            throw RunTimeError(kPathOrFileAccess);
        if (got == 0) {
            bytes.resize(have);
            return bytes;
        }
    }
}

void writeAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t done = ::write(descriptor, bytes.data(), bytes.size());
        if (done < 0 && errno == EINTR)
            continue;
        if (done < 0)
            throwSystemError(errno);
        bytes.remove_prefix(static_cast<std::size_t>(done));
    }
}

namespace {

/// What a link stands for, so that the link stays when the file is replaced. A name that isn't there is
/// itself.
std::string linkTarget(const std::string& native)
{
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(native.c_str(), nullptr), &std::free);
    if (real)
        return real.get();
    if (errno == ENOENT)
        return native;
    throwSystemError(errno);
}

class TemporaryFile {
public:
    TemporaryFile(const std::string& folder, mode_t mode)
    {
        static std::atomic<unsigned> counter{0};
        for (int tries = 0; tries < 100 && !file_.isOpen(); ++tries) {
            path_ = folder + ".zorvo-" + std::to_string(getpid()) + '-' + std::to_string(counter++) + ".tmp";
            file_ = FileDescriptor(open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
            if (!file_.isOpen() && errno != EEXIST)
                throwSystemError(errno == ENOENT ? ENOTDIR : errno); // it is the folder that isn't there
        }
        if (!file_.isOpen())
            throw RunTimeError(kPathOrFileAccess);
    }
    ~TemporaryFile()
    {
        if (!bKept_)
            unlink(path_.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    int descriptor() const { return file_.get(); }

    void moveTo(const std::string& target)
    {
        if (fsync(file_.get()) != 0 || rename(path_.c_str(), target.c_str()) != 0)
            throwSystemError(errno);
        bKept_ = true;
    }

private:
    std::string path_;
    FileDescriptor file_;
    bool bKept_ = false;
};

/// A file of another owner that can't be given back to him still gets its content and mode.
void takeOver(int descriptor, const struct stat& old)
{
    struct stat made {};
    const bool bForeign =
        fstat(descriptor, &made) == 0 && (made.st_uid != old.st_uid || made.st_gid != old.st_gid);
    if (bForeign && fchown(descriptor, old.st_uid, old.st_gid) != 0 && errno != EPERM)
        throwSystemError(errno);
    if (fchmod(descriptor, old.st_mode & 07777U) != 0)
        throwSystemError(errno);
}

} // namespace

void replaceFile(const std::string& native, mode_t newMode, const std::function<void(int descriptor)>& fill)
{
    const std::string target = linkTarget(native);
    struct stat old {};
    const bool bThere = stat(target.c_str(), &old) == 0;
    if (bThere && !S_ISREG(old.st_mode))
        throw RunTimeError(kPathOrFileAccess);
    TemporaryFile temporary(target.substr(0, target.rfind('/') + 1), newMode);
    fill(temporary.descriptor());
    if (bThere)
        takeOver(temporary.descriptor(), old);
    temporary.moveTo(target);
}

void replaceFile(const std::string& native, mode_t newMode, std::string_view bytes)
{
    replaceFile(native, newMode, [bytes](int descriptor) { writeAll(descriptor, bytes); });
}

void lockFile(int descriptor, std::chrono::milliseconds longest)
{
    const auto end = std::chrono::steady_clock::now() + longest;
    while (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR)
            throwSystemError(errno);
        if (std::chrono::steady_clock::now() > end)
            throw RunTimeError(kPermissionDenied);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

void makeFolders(const std::string& native, mode_t mode)
{
    for (std::size_t end = native.find('/', 1);; end = native.find('/', end + 1)) {
        const std::string level = native.substr(0, end);
        struct stat status {};
        const bool bThere = stat(level.c_str(), &status) == 0;
        if (bThere && !S_ISDIR(status.st_mode))
            throw RunTimeError(kPathNotFound);
        if (!bThere && mkdir(level.c_str(), mode) != 0 && errno != EEXIST)
            throwSystemError(errno);
        if (end == std::string::npos)
            return;
    }
}

} // namespace zorvo
