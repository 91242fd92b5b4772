#include "tests/fakes/FakeFiles.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "platform/dosPath.h"

#include <algorithm>

namespace zorvo {

namespace {

constexpr const char* kNativeDriveC = "/fake/drive_c";

/// The one spelling under which a path is kept; empty for a text that is no path.
std::string keyOf(const std::string& path)
{
    const auto parsed = parseDosPath(path);
    return parsed ? upperCase(dosPathText(*parsed)) : std::string();
}

std::string parentOf(const std::string& path)
{
    auto parsed = parseDosPath(path);
    if (!parsed || parsed->levels.empty())
        return {};
    parsed->levels.pop_back();
    return dosPathText(*parsed);
}

std::string lastLevel(const std::string& path)
{
    const auto parsed = parseDosPath(path);
    return parsed && !parsed->levels.empty() ? parsed->levels.back() : std::string();
}

} // namespace

FakeFiles::FakeFiles()
{
    for (const char* root : {"C:\\", "Z:\\"})
        nodes_[root] =
            Node{.sName = {}, .bFolder = true, .bReadOnly = false, .nModified = nClock_, .sBytes = {}};
}

bool FakeFiles::fileExists(const std::string& path)
{
    const Node* node = find(path);
    return node != nullptr && !node->bFolder;
}

bool FakeFiles::folderExists(const std::string& path)
{
    const Node* node = find(path);
    return node != nullptr && node->bFolder;
}

std::string FakeFiles::read(const std::string& path)
{
    begin(Operation::read, path);
    return existingFile(path).sBytes;
}

void FakeFiles::write(const std::string& path, std::string_view bytes)
{
    begin(Operation::write, path);
    fileToWrite(path).sBytes = bytes;
}

void FakeFiles::append(const std::string& path, std::string_view bytes)
{
    begin(Operation::append, path);
    fileToWrite(path).sBytes.append(bytes);
}

void FakeFiles::remove(const std::string& path)
{
    begin(Operation::remove, path);
    existingFile(path);
    nodes_.erase(keyOf(path));
}

void FakeFiles::copy(const std::string& source, const std::string& target)
{
    begin(Operation::copy, target);
    const std::string bytes = existingFile(source).sBytes;
    fileToWrite(target).sBytes = bytes;
}

std::uint64_t FakeFiles::size(const std::string& path)
{
    begin(Operation::size, path);
    return existingFile(path).sBytes.size();
}

std::int64_t FakeFiles::lastModified(const std::string& path)
{
    begin(Operation::lastModified, path);
    return existingFile(path).nModified;
}

void FakeFiles::clearAttributes(const std::string& path)
{
    begin(Operation::clearAttributes, path);
    existingFile(path).bReadOnly = false;
}

void FakeFiles::makeFolder(const std::string& path)
{
    begin(Operation::makeFolder, path);
    if (find(path) != nullptr)
        throw RunTimeError(kPathOrFileAccess);
    if (!parentExists(path))
        throw RunTimeError(kPathNotFound);
    add(path).bFolder = true;
}

std::vector<Files::Entry> FakeFiles::list(const std::string& folder)
{
    std::vector<Entry> entries;
    if (!folderExists(folder))
        return entries;
    const std::string inside = keyOf(folder).ends_with('\\') ? keyOf(folder) : keyOf(folder) + '\\';
    for (const auto& [key, node] : nodes_) {
        const bool bDirect = key.size() > inside.size() && key.starts_with(inside) &&
                             key.find('\\', inside.size()) == std::string::npos;
        if (bDirect)
            entries.push_back({node.sName, node.bFolder});
    }
    return entries;
}

std::string FakeFiles::toNative(const std::string& path)
{
    const auto parsed = parseDosPath(path);
    if (!parsed)
        return path;
    std::string native = parsed->drive == 'Z' ? "" : kNativeDriveC;
    DosPath upToHere{parsed->drive, {}};
    for (const std::string& level : parsed->levels) {
        upToHere.levels.push_back(level);
        const Node* node = find(dosPathText(upToHere));
        native.append("/").append(node != nullptr ? node->sName : level);
    }
    return native.empty() ? "/" : native;
}

std::string FakeFiles::fromNative(const std::string& native)
{
    auto parsed = parseDosPath(native);
    if (!parsed)
        return native;
    const std::string text = dosPathText(*parsed);
    const std::string driveC = "Z:\\fake\\drive_c";
    if (text == driveC)
        return "C:\\";
    return text.starts_with(driveC + "\\") ? "C:" + text.substr(driveC.size()) : text;
}

void FakeFiles::addFile(const std::string& path, const std::string& bytes)
{
    addFolder(parentOf(path));
    add(path).sBytes = bytes;
}

void FakeFiles::addFolder(const std::string& path)
{
    if (keyOf(path).empty() || find(path) != nullptr)
        return;
    addFolder(parentOf(path));
    add(path).bFolder = true;
}

void FakeFiles::setReadOnly(const std::string& path, bool bReadOnly)
{
    existingFile(path).bReadOnly = bReadOnly;
}

void FakeFiles::setLastModified(const std::string& path, std::int64_t nanoseconds)
{
    existingFile(path).nModified = nanoseconds;
}

std::optional<std::string> FakeFiles::content(const std::string& path) const
{
    const Node* node = find(path);
    if (node == nullptr || node->bFolder)
        return std::nullopt;
    return node->sBytes;
}

bool FakeFiles::isReadOnly(const std::string& path) const
{
    const Node* node = find(path);
    return node != nullptr && node->bReadOnly;
}

void FakeFiles::failOn(Operation operation, const std::string& path, int number)
{
    failures_[{operation, keyOf(path)}] = number;
}

void FakeFiles::begin(Operation operation, const std::string& path)
{
    calls.push_back({operation, path});
    if (onCall)
        onCall(Call(calls.back()));
    for (const std::string& key : {keyOf(path), std::string()}) {
        const auto failure = failures_.find({operation, key});
        if (failure != failures_.end() && failure->second != 0)
            throw RunTimeError(failure->second);
    }
}

FakeFiles::Node* FakeFiles::find(const std::string& path)
{
    const auto found = nodes_.find(keyOf(path));
    return found == nodes_.end() ? nullptr : &found->second;
}

const FakeFiles::Node* FakeFiles::find(const std::string& path) const
{
    const auto found = nodes_.find(keyOf(path));
    return found == nodes_.end() ? nullptr : &found->second;
}

FakeFiles::Node& FakeFiles::existingFile(const std::string& path)
{
    Node* node = find(path);
    if (node != nullptr && node->bFolder)
        throw RunTimeError(kPathOrFileAccess);
    if (node == nullptr)
        throw RunTimeError(parentExists(path) ? kFileNotFound : kPathNotFound);
    return *node;
}

FakeFiles::Node& FakeFiles::fileToWrite(const std::string& path)
{
    Node* node = find(path);
    if (node != nullptr && (node->bFolder || node->bReadOnly))
        throw RunTimeError(kPathOrFileAccess);
    if (node == nullptr && !parentExists(path))
        throw RunTimeError(kPathNotFound);
    return add(path);
}

FakeFiles::Node& FakeFiles::add(const std::string& path)
{
    const auto [place, bNew] = nodes_.try_emplace(keyOf(path));
    if (bNew)
        place->second.sName = lastLevel(path);
    place->second.nModified = ++nClock_;
    return place->second;
}

bool FakeFiles::parentExists(const std::string& path) const
{
    const Node* parent = find(parentOf(path));
    return parent != nullptr && parent->bFolder;
}

} // namespace zorvo
