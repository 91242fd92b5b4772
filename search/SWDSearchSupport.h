#pragma once

#include "base/XmlDocument.h"
#include "platform/Registry.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// Which editions of the example library are on the machine, and of which year.
namespace zorvo {

/// The suffix of message box titles all through the search.
inline constexpr const char* kLibraryTitleSuffix = "Zorvo's Sablewood Library";

/// What the editions are found out from.
struct LibrarySources {
    /// The current calendar year: the newest that can be installed.
    std::int32_t nYear = 0;
    /// The document element is `SWDInformation`.
    XmlDocument index;
    /// As InstallInfo.h has it.
    std::function<void(const std::string& sProductType, const std::string& ProductGroup,
                       const std::string& version, bool& bInstalled, std::string& appPath, Hive hHive)>
        GetQBKInfo;
};

/// Fills the tables of `searchState()`, and unless `bCheckOnly` is set `sList` with the name and year of each
/// edition found, from its first entry on; `nCount` is their number. `sList` grows when it is too short.
/// `bFound` tells whether any is installed; with `bCheckOnly` it is always written, else only when true.
/// Without Excel 9 the user is told, and nothing else happens.
/// Throws RunTimeError: 91 for an index that is missing or lacks a part, 9 for one of more than four
/// editions, and what making Excel throws.
void LoadLibraries(std::vector<std::string>& sList, std::int16_t& nCount, bool& bFound, bool bCheckOnly);

/// False, with a box that says so, when Excel is too old for the search's results.
bool bExcelIsRecentEnough();

/// LoadLibraries behind its question about Excel, on sources of the caller's.
void LoadLibrariesFrom(const LibrarySources& sources, std::vector<std::string>& sList, std::int16_t& nCount,
                       bool& bFound, bool bCheckOnly);

/// What the list shows for an edition of the tables.
std::string sLibraryText(std::size_t i);

} // namespace zorvo
