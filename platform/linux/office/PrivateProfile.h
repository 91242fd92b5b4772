#pragma once

#include "platform/linux/nativeFiles.h"
#include "platform/linux/office/OfficeInstallation.h"

#include <string>
#include <vector>

namespace zorvo {

/// A folder with settings for an office of our own, below the user's cache folder, that no other process
/// uses. It goes with this object; what a killed program has left behind goes when the next one is made.
class PrivateProfile {
public:
    /// Throws RunTimeError when the folder can't be made.
    explicit PrivateProfile(const OfficeInstallation& office);
    ~PrivateProfile();
    PrivateProfile(const PrivateProfile&) = delete;
    PrivateProfile& operator=(const PrivateProfile&) = delete;

    const std::string& folder() const { return folder_; }
    /// For the office's own temporary files.
    std::string temporaryFolder() const { return folder_ + "/tmp"; }

    /// Sockets that the office has made elsewhere and leaves when it is killed.
    void noteSockets(const std::vector<std::string>& paths);

private:
    std::string folder_;
    FileDescriptor lock_;
};

} // namespace zorvo
