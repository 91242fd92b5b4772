#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zorvo {

/// The edge to the file system. Paths are in the backslash form with a drive; names match without regard to
/// case where no exact match exists, and a new name is created as spelled. "/" is taken for "\". What can't
/// be done throws RunTimeError: 53 file not found, 70 permission denied, 75 access error, 76 path not found.
/// Nothing is written half: a replaced file is replaced whole or stays as it was.
class Files {
public:
    struct Entry {
        std::string sName;
        bool bFolder = false;
    };

    virtual ~Files() = default;

    /// A plain file of that name is there. Never throws; an empty path names nothing; "*" and "?" are plain
    /// characters.
    virtual bool fileExists(const std::string& path) = 0;
    virtual bool folderExists(const std::string& path) = 0;

    virtual std::string read(const std::string& path) = 0;
    virtual void write(const std::string& path, std::string_view bytes) = 0;
    /// One append, whole also when two processes append at once.
    virtual void append(const std::string& path, std::string_view bytes) = 0;
    /// Makes it writable if need be and deletes it.
    virtual void remove(const std::string& path) = 0;
    virtual void copy(const std::string& source, const std::string& target) = 0;
    virtual std::uint64_t size(const std::string& path) = 0;
    /// Modification time in nanoseconds since the epoch.
    virtual std::int64_t lastModified(const std::string& path) = 0;
    /// Clears what keeps a file from being written over (read-only).
    virtual void clearAttributes(const std::string& path) = 0;
    /// One level. A folder that exists is a failure (75).
    virtual void makeFolder(const std::string& path) = 0;
    /// Names in the folder in the system's own order, "." and ".." left out. A folder that isn't there is
    /// empty.
    virtual std::vector<Entry> list(const std::string& folder) = 0;

    /// The native form of a backslash path, existing names in their real spelling.
    virtual std::string toNative(const std::string& path) = 0;
    /// The backslash form of a native path, through the longest drive that holds it.
    virtual std::string fromNative(const std::string& native) = 0;
};

} // namespace zorvo
