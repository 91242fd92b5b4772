#pragma once

#include "platform/FileSearch.h"
#include "platform/linux/DosPaths.h"
#include "platform/linux/filesearch/SearchCache.h"

#include <string>

namespace zorvo {

/// The port on the file system. Rich and plain text is read here, other formats by an office process of our
/// own. What was read is kept below the user's cache folder.
class LinuxFileSearch : public FileSearch {
public:
    /// The second is the native path of the file in which extracted words are kept.
    explicit LinuxFileSearch(DosPaths paths, const std::string& sCacheFile = usualCacheFile());

    std::vector<std::string> find(const FileQuestion& question, const Progress& progress) override;

    static std::string usualCacheFile();

private:
    DosPaths paths_;
    SearchCache cache_;
};

} // namespace zorvo
