#include "platform/linux/LinuxFiles.h"

#include "base/RunTimeError.h"
#include "platform/linux/nativeFiles.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>

namespace zorvo {

namespace {

constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr std::chrono::seconds kLongestLock(10);

std::optional<struct stat> statusOf(const std::string& native)
{
    struct stat status {};
    if (stat(native.c_str(), &status) != 0)
        return std::nullopt;
    return status;
}

bool isFolder(const std::string& native)
{
    const auto status = statusOf(native);
    return status && S_ISDIR(status->st_mode);
}

/// A missing folder is told from a missing file.
[[noreturn]] void throwFor(int systemError, const std::string& native)
{
    const bool bNoFolder = systemError == ENOENT && !isFolder(native.substr(0, native.rfind('/') + 1));
    throwSystemError(bNoFolder ? ENOTDIR : systemError);
}

std::string nativeOf(const DosPaths& paths, const std::string& path)
{
    auto native = paths.resolve(path);
    if (!native)
        throw RunTimeError(kPathNotFound);
    return std::move(*native);
}

struct stat existingFile(const std::string& native)
{
    struct stat status {};
    if (stat(native.c_str(), &status) != 0)
        throwFor(errno, native);
    if (!S_ISREG(status.st_mode))
        throw RunTimeError(kPathOrFileAccess);
    return status;
}

/// The status of a file that is to be written, if it is there.
std::optional<struct stat> writableFile(const std::string& native)
{
    const auto status = statusOf(native);
    if (status && (!S_ISREG(status->st_mode) || (status->st_mode & kAnyWrite) == 0))
        throw RunTimeError(kPathOrFileAccess);
    if (status && access(native.c_str(), W_OK) != 0) // the folder alone would let the file be replaced
        throwSystemError(errno);
    return status;
}

void pump(int from, int to)
{
    std::string piece(128U << 10U, '\0');
    for (;;) {
        const ssize_t got = ::read(from, piece.data(), piece.size());
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            throwSystemError(errno);
        if (got == 0)
            return;
        writeAll(to, std::string_view(piece).substr(0, static_cast<std::size_t>(got)));
    }
}

} // namespace

LinuxFiles::LinuxFiles(DosPaths paths)
    : paths_(std::move(paths))
{
}

bool LinuxFiles::fileExists(const std::string& path)
{
    const auto native = paths_.resolve(path);
    const auto status = native ? statusOf(*native) : std::nullopt;
    return status && S_ISREG(status->st_mode);
}

bool LinuxFiles::folderExists(const std::string& path)
{
    const auto native = paths_.resolve(path);
    return native && isFolder(*native);
}

std::string LinuxFiles::read(const std::string& path)
{
    const std::string native = nativeOf(paths_, path);
    existingFile(native);
    return readWholeFile(native);
}

void LinuxFiles::write(const std::string& path, std::string_view bytes)
{
    const std::string native = nativeOf(paths_, path);
    writableFile(native);
    replaceFile(native, 0666, bytes);
}

void LinuxFiles::append(const std::string& path, std::string_view bytes)
{
    const std::string native = nativeOf(paths_, path);
    writableFile(native);
    const FileDescriptor file(
        open(native.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NOCTTY, 0666));
    if (!file.isOpen())
        throwFor(errno, native);
    lockFile(file.get(), kLongestLock);
    struct stat before {};
    if (fstat(file.get(), &before) != 0)
        throwSystemError(errno);
    try {
        writeAll(file.get(), bytes);
    } catch (const RunTimeError&) {
        // A full disk took a part of the line: it goes again, so that the next line starts on its own.
        if (ftruncate(file.get(), before.st_size) != 0)
            throwSystemError(errno);
        throw;
    }
}

void LinuxFiles::remove(const std::string& path)
{
    const std::string native = nativeOf(paths_, path);
    existingFile(native);
    if (unlink(native.c_str()) != 0) // the file's own permissions don't matter here, only the folder's
        throwSystemError(errno);
}

void LinuxFiles::copy(const std::string& source, const std::string& target)
{
    const std::string from = nativeOf(paths_, source);
    const std::string to = nativeOf(paths_, target);
    existingFile(from);
    const FileDescriptor file = openPlainFile(from);
    struct stat status {};
    if (fstat(file.get(), &status) != 0)
        throwSystemError(errno);
    writableFile(to);
    // A copy of a read-only template is a document to write in.
    const mode_t mode = (status.st_mode & 0777U) | S_IWUSR;
    replaceFile(to, mode, [&](int descriptor) {
        pump(file.get(), descriptor);
        const timespec times[2] = {status.st_atim, status.st_mtim};
        futimens(descriptor, times); // the time is a courtesy: some file systems don't keep it
    });
}

std::uint64_t LinuxFiles::size(const std::string& path)
{
    return static_cast<std::uint64_t>(existingFile(nativeOf(paths_, path)).st_size);
}

std::int64_t LinuxFiles::lastModified(const std::string& path)
{
    constexpr std::int64_t kNanoseconds = 1'000'000'000;
    const timespec time = existingFile(nativeOf(paths_, path)).st_mtim;
    return static_cast<std::int64_t>(time.tv_sec) * kNanoseconds + time.tv_nsec;
}

void LinuxFiles::clearAttributes(const std::string& path)
{
    const std::string native = nativeOf(paths_, path);
    const struct stat status = existingFile(native);
    if ((status.st_mode & S_IWUSR) == 0 && chmod(native.c_str(), (status.st_mode & 07777U) | S_IWUSR) != 0)
        throwSystemError(errno);
}

void LinuxFiles::makeFolder(const std::string& path)
{
    const std::string native = nativeOf(paths_, path);
    if (mkdir(native.c_str(), 0777) != 0)
        throwSystemError(errno == ENOENT ? ENOTDIR : errno);
}

std::vector<Files::Entry> LinuxFiles::list(const std::string& folder)
{
    std::vector<Entry> entries;
    const auto native = paths_.resolve(folder);
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(native ? opendir(native->c_str()) : nullptr,
                                                        &closedir);
    if (!directory)
        return entries;
    while (const dirent* found = readdir(directory.get())) {
        const std::string name = found->d_name;
        // A name with a backslash inside can't be said in the backslash form.
        if (name == "." || name == ".." || name.find('\\') != std::string::npos)
            continue;
        const bool bUnsure = found->d_type == DT_LNK || found->d_type == DT_UNKNOWN;
        entries.push_back({name, bUnsure ? isFolder(*native + '/' + name) : found->d_type == DT_DIR});
    }
    return entries;
}

std::string LinuxFiles::toNative(const std::string& path)
{
    return paths_.toNative(path);
}

std::string LinuxFiles::fromNative(const std::string& native)
{
    return paths_.fromNative(native);
}

} // namespace zorvo
