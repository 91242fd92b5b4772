#pragma once

#include <optional>
#include <string>

/// Texts that are paths in the backslash form, with a drive: `C:\folder\name.ext`. Nothing here touches a
/// disk.
namespace zorvo {

/// The folder part. A path without a "." anywhere is all folder; a root keeps its backslash; a path whose
/// first backslash is its first character gives the empty text.
std::string sGetFilePath(const std::string& sFullName);

/// The name part; with `bNoExtension` cut at its last ".".
std::string sGetFileName(const std::string& sFullName, bool bNoExtension);

/// The two texts with exactly one backslash between. Without `sSub`, the path up to its first zero character.
std::string sJoinPath(const std::string& sPath, const std::optional<std::string>& sSub = {});

/// The text before the first zero character, at most `nMax` characters of it.
std::string sStripNull(const std::string& s, std::optional<std::size_t> nMax = {});

/// The path with one backslash at its end, added when it has none.
std::string withBackslash(std::string sPath);

} // namespace zorvo
