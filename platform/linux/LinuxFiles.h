#pragma once

#include "platform/Files.h"
#include "platform/linux/DosPaths.h"

#include <memory>

namespace zorvo {

/// The port on the file system. A file without any write permission is what the port calls read-only, also
/// for a user whom permissions don't bind.
class LinuxFiles : public Files {
public:
    explicit LinuxFiles(DosPaths paths);

    bool fileExists(const std::string& path) override;
    bool folderExists(const std::string& path) override;
    std::string read(const std::string& path) override;
    void write(const std::string& path, std::string_view bytes) override;
    void append(const std::string& path, std::string_view bytes) override;
    void remove(const std::string& path) override;
    void copy(const std::string& source, const std::string& target) override;
    std::uint64_t size(const std::string& path) override;
    std::int64_t lastModified(const std::string& path) override;
    void clearAttributes(const std::string& path) override;
    void makeFolder(const std::string& path) override;
    std::vector<Entry> list(const std::string& folder) override;
    std::string toNative(const std::string& path) override;
    std::string fromNative(const std::string& native) override;

private:
    DosPaths paths_;
};

} // namespace zorvo
