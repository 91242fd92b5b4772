#pragma once

#include <string>
#include <vector>

namespace zorvo {

/// Appends the full paths of what lies in `sFolder` (with a closing backslash) and matches `sPattern` ("*"
/// and "?", case-blind), in the system's own order, each trimmed and with its first character in upper case,
/// and counts them in `nCount`. Folders are listed like files. With `sContains`, only files that hold that
/// text, or with `bNotContains` only those that don't. With `bRecurse` the folders below follow, each whole.
void FindFiles(const std::string& sFolder, const std::string& sPattern, const std::string& sContains,
               bool bNotContains, std::vector<std::string>& records, int& nCount, bool bRecurse);

/// The file's bytes hold the text, case-blind. False when the file can't be read.
bool FileContainsText(const std::string& sPath, const std::string& sText);

/// The name matches a pattern of "*" (any text) and "?" (one character), case-blind. "*.*" takes every name.
bool MatchesPattern(const std::string& sName, const std::string& sPattern);

} // namespace zorvo
