#pragma once

#include "platform/Registry.h"

#include <optional>
#include <string>

/// How all the program finds its folders, reads single registry values and touches files: plain logic over
/// the ports. Paths are in the backslash form.
namespace zorvo {

/// The program folder; empty after a failure, which is reported with advice to the user.
std::string GetZorvoPath(bool bAddBackslash);

/// The user's documents folder with `sSub` joined on goes to `sPath`. `bCreate`, given with whatever value,
/// makes the folder. On any failure `sPath` is empty and the result false.
bool bGetDocsFolder(std::string& sPath, const std::optional<std::string>& sSub = {},
                    std::optional<bool> bCreate = {});

/// The user's application data folder as the registry names it, or empty.
std::string sGetAppDataFolder();

/// The path of a special folder (SpecialFolders::Id), or empty.
std::string GetSpecialFolder(int nFolder);

/// The value as text whatever its type; `vDefault`, or empty, on any failure.
std::string sGetRegValue(Hive hHive, const std::string& sKey, const std::string& sValueName,
                         const std::optional<std::string>& vDefault = {});

/// False for an empty path and on any error. Folders don't count.
bool bFileExists(const std::string& sPath);

/// Makes the folder level by level; every failure is ignored.
void MakeNestedFolder(const std::string& sPath);

/// Makes the target's folder, then copies. Throws RunTimeError when the copy fails.
void CopyFileMakingFolder(const std::string& sSource, const std::string& sTarget);

/// Clears the file's attributes and deletes it; every failure is ignored.
void DeleteFileQuietly(const std::string& sPath);

} // namespace zorvo
