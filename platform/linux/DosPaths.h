#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zorvo {

/// Backslash paths and native ones. Drives are symbolic links `c:`, `d:` and so on in the folder `dosdevices`
/// of the user's data; drive Z is the root of the file system without a link; drive C is made at its first
/// use.
class DosPaths {
public:
    /// With `asItIs` a missing drive C stays missing: for those who look at a machine and mustn't change it.
    enum class DriveC { madeAtFirstUse, asItIs };

    /// The native folder that holds `dosdevices`.
    explicit DosPaths(std::string userData, DriveC driveC = DriveC::madeAtFirstUse);

    /// The native path, with existing names in their real spelling and the rest as given. Nothing for a text
    /// that is no path, or for a drive that isn't there.
    std::optional<std::string> resolve(const std::string& path) const;

    /// The same, for showing: a text that is no path on a drive comes back as it is.
    std::string toNative(const std::string& path) const;

    /// The backslash form through the longest drive that holds the path, else through Z. A path that has a
    /// drive already comes back with a capital one; anything else as it is.
    std::string fromNative(const std::string& native) const;

private:
    std::optional<std::string> driveFolder(char drive) const;
    std::string driveLink(char drive) const;
    void makeDriveC() const;
    std::vector<std::pair<std::string, char>> driveFolders() const;

    std::string userData_;
    DriveC driveC_;
};

} // namespace zorvo
