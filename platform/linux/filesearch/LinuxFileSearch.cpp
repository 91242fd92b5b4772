#include "platform/linux/filesearch/LinuxFileSearch.h"

#include "base/paths.h"
#include "platform/linux/environmentFolders.h"
#include "platform/linux/filesearch/FolderSearch.h"

#include <chrono>
#include <future>

namespace zorvo {

namespace {

constexpr std::chrono::milliseconds kBetweenProgress{20};

} // namespace

LinuxFileSearch::LinuxFileSearch(DosPaths paths, const std::string& sCacheFile)
    : paths_(std::move(paths))
    , cache_(sCacheFile)
{
}

std::string LinuxFileSearch::usualCacheFile()
{
    return cacheHomeFolder() + "/zorvobrendle/search.db";
}

std::vector<std::string> LinuxFileSearch::find(const FileQuestion& question, const Progress& progress)
{
    const std::optional<std::string> folder = paths_.resolve(question.sLookIn);
    if (!folder)
        return {};
    FolderSearch search(*folder, question.sTextOrProperty, question.sFileName, cache_);
    auto names = std::async(std::launch::async, [&search] { return search.run(); });
    try {
        do {
            if (progress)
                progress(search.filesDone(), search.files());
        } while (names.wait_for(kBetweenProgress) != std::future_status::ready);
    } catch (...) {
        search.cancel();
        names.wait();
        throw;
    }
    std::vector<std::string> files = names.get();
    for (std::string& sName : files)
        sName = sJoinPath(question.sLookIn, sName);
    return files;
}

} // namespace zorvo
