#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorvo {

/// A path in the backslash form, taken apart. Nothing here touches a disk.
struct DosPath {
    char drive = 'C'; // a capital
    std::vector<std::string> levels;
};

/// Takes `C:\folder\name`, either separator; repeated separators count once, "." and ".." are worked out in
/// the text and ".." stops at the root. A path that begins with one "/" is a native one and lies on drive Z.
/// Nothing for any other text (empty, relative, a server's share, a zero character inside).
std::optional<DosPath> parseDosPath(std::string_view path);

/// `C:\folder\name`; a root keeps its backslash.
std::string dosPathText(const DosPath& path);

} // namespace zorvo
