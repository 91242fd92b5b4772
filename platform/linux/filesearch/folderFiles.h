#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zorvo {

/// A file as its folder tells of it; the same size and time mean the same content.
struct FolderFile {
    std::string sName;
    std::uint64_t nSize = 0;
    std::int64_t nModified = 0; // nanoseconds since the epoch

    bool operator==(const FolderFile&) const = default;
};

/// The plain files of a native folder whose names match `sPattern` (`?`, `*`, without regard to case; empty
/// means all), by name ascending without regard to case. A folder that can't be read has none. Owner files,
/// which a word processor keeps beside an open document, are left out.
std::vector<FolderFile> filesOfFolder(const std::string& sFolder, const std::string& sPattern);

} // namespace zorvo
