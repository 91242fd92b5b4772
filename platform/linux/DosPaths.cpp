#include "platform/linux/DosPaths.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "platform/dosPath.h"
#include "platform/linux/nativeFiles.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <memory>

namespace zorvo {

namespace {

bool exists(const std::string& native)
{
    struct stat status {};
    return lstat(native.c_str(), &status) == 0;
}

std::string joined(const std::string& folder, const std::string& name)
{
    return folder.ends_with('/') ? folder + name : folder + '/' + name;
}

/// The name in the folder that equals `name` but for case: the first by code when there are several, none
/// when there isn't any or the folder can't be read.
std::optional<std::string> realSpelling(const std::string& folder, const std::string& name)
{
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(opendir(folder.c_str()), &closedir);
    if (!directory)
        return std::nullopt;
    const std::string wanted = upperCase(name);
    std::optional<std::string> best;
    while (const dirent* entry = readdir(directory.get())) {
        std::string found = entry->d_name;
        if ((!best || found < *best) && upperCase(found) == wanted)
            best = std::move(found);
    }
    return best;
}

std::string walk(const std::string& root, const std::vector<std::string>& levels)
{
    std::string exact = root;
    for (const std::string& level : levels)
        exact = joined(exact, level);
    if (exists(exact))
        return exact;
    std::string native = root;
    bool bThere = true; // below a missing level there is nothing to look up
    for (const std::string& level : levels) {
        std::string next = joined(native, level);
        if (bThere && !exists(next)) {
            const auto spelling = realSpelling(native, level);
            bThere = spelling.has_value();
            if (spelling)
                next = joined(native, *spelling);
        }
        native = std::move(next);
    }
    return native;
}

std::string realFolder(const std::string& path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr), &std::free);
    return real ? real.get() : std::string();
}

/// The folder that a drive link names, as the link spells it; a link that isn't absolute is worked out.
std::string linkedFolder(const std::string& link)
{
    char target[PATH_MAX];
    const ssize_t length = readlink(link.c_str(), target, sizeof target);
    if (length < 0 && errno == ENOENT) // most letters, at every path that is shown
        return {};
    std::string folder(target, length > 0 ? static_cast<std::size_t>(length) : 0);
    if (!folder.starts_with('/'))
        folder = realFolder(link);
    while (folder.size() > 1 && folder.ends_with('/'))
        folder.pop_back();
    return folder;
}

} // namespace

DosPaths::DosPaths(std::string userData, DriveC driveC)
    : userData_(std::move(userData))
    , driveC_(driveC)
{
}

std::optional<std::string> DosPaths::resolve(const std::string& path) const
{
    const auto parsed = parseDosPath(path);
    if (!parsed)
        return std::nullopt;
    const auto root = driveFolder(parsed->drive);
    if (!root)
        return std::nullopt;
    return walk(*root, parsed->levels);
}

std::string DosPaths::toNative(const std::string& path) const
{
    return resolve(path).value_or(path);
}

std::string DosPaths::fromNative(const std::string& native) const
{
    const bool bNative = native.starts_with('/');
    auto parsed = parseDosPath(bNative ? "Z:" + native : native);
    if (!parsed || !bNative)
        return parsed ? dosPathText(*parsed) : native;
    std::string clean;
    for (const std::string& level : parsed->levels)
        clean.append("/").append(level);
    std::size_t longest = 0;
    for (const auto& [folder, drive] : driveFolders()) {
        const bool bHolds =
            clean.starts_with(folder) && (clean.size() == folder.size() || clean[folder.size()] == '/');
        if (!bHolds || folder.size() <= longest)
            continue;
        longest = folder.size();
        parsed->drive = drive;
    }
    parsed->levels = parseDosPath("Z:" + clean.substr(longest))->levels;
    return dosPathText(*parsed);
}

std::string DosPaths::driveLink(char drive) const
{
    return userData_ + "/dosdevices/" + static_cast<char>(drive - 'A' + 'a') + ':';
}

std::optional<std::string> DosPaths::driveFolder(char drive) const
{
    if (drive == 'Z')
        return "/";
    try {
        if (drive == 'C' && driveC_ == DriveC::madeAtFirstUse && !exists(driveLink(drive)))
            makeDriveC();
    } catch (const RunTimeError&) { // a user whose data can't be written has no drive C
        return std::nullopt;
    }
    const std::string folder = linkedFolder(driveLink(drive));
    return folder.empty() ? std::nullopt : std::optional(folder);
}

void DosPaths::makeDriveC() const
{
    const std::string folder = userData_ + "/drive_c";
    makeFolders(userData_ + "/dosdevices", 0700);
    makeFolders(folder, 0700);
    if (symlink(folder.c_str(), driveLink('C').c_str()) != 0 && errno != EEXIST)
        throwSystemError(errno);
}

std::vector<std::pair<std::string, char>> DosPaths::driveFolders() const
{
    std::vector<std::pair<std::string, char>> folders;
    for (char drive = 'A'; drive < 'Z'; ++drive) {
        auto spelled = driveFolder(drive);
        if (!spelled)
            continue;
        // A path may be spelled as the link has it or with its own links worked out.
        for (std::string& folder :
             std::vector<std::string>{std::move(*spelled), realFolder(driveLink(drive))})
            if (folder.size() > 1)
                folders.emplace_back(std::move(folder), drive);
    }
    return folders;
}

} // namespace zorvo
