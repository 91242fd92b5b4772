#pragma once

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <string>
#include <string_view>

/// Files by native path, with the system's failures turned into the program's numbers.
namespace zorvo {

/// The failure number for an `errno` value: 53, 61, 70, 75 or 76.
int errorNumberOf(int systemError);
/// Throws the RunTimeError of an `errno` value.
[[noreturn]] void throwSystemError(int systemError);

/// An open file, closed with its owner.
class FileDescriptor {
public:
    explicit FileDescriptor(int descriptor = -1)
        : descriptor_(descriptor)
    {
    }
    ~FileDescriptor();
    FileDescriptor(FileDescriptor&& other) noexcept
        : descriptor_(other.release())
    {
    }
    FileDescriptor& operator=(FileDescriptor&& other) noexcept;
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    int get() const { return descriptor_; }
    bool isOpen() const { return descriptor_ >= 0; }
    int release();

private:
    int descriptor_;
};

/// Opens a plain file for reading and never waits on a pipe or a device: anything but a plain file is 75.
FileDescriptor openPlainFile(const std::string& native);

/// All the bytes of a plain file. A file of more than `largest` bytes is refused with 75.
std::string readWholeFile(const std::string& native, std::size_t largest = std::size_t(1) << 31U);

/// Writes all the bytes or throws.
void writeAll(int descriptor, std::string_view bytes);

/// Puts a new content in the place of a file: a temporary file beside it is filled by `fill`, brought to the
/// disk and renamed. On any failure the old file stays and the temporary one goes. A link is followed, a file
/// that is there keeps its mode and owner, a new one gets `newMode` less the user's mask.
void replaceFile(const std::string& native, mode_t newMode, const std::function<void(int descriptor)>& fill);
void replaceFile(const std::string& native, mode_t newMode, std::string_view bytes);

/// Waits for the exclusive lock on an open file, at most that long; throws 70 when another process keeps it.
void lockFile(int descriptor, std::chrono::milliseconds longest);

/// Makes the folder with its parents; one that is there is left as it is.
void makeFolders(const std::string& native, mode_t mode);

} // namespace zorvo
