#pragma once

#include "platform/Keyword.h"
#include "platform/linux/filesearch/FileIndexer.h"
#include "platform/linux/filesearch/SearchCache.h"

#include <atomic>
#include <cstddef>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zorvo {

/// One search of one folder. It runs on a thread of its own, with helpers that read the files; its progress
/// and its cancelling are for any thread.
class FolderSearch {
public:
    /// `sFolder` is native; the rest as FileSearch.h has it.
    FolderSearch(std::string sFolder, const std::string& sText, std::string sPattern,
                 const SearchCache& cache);

    /// The names of the files found, in order. Throws RunTimeError 429. What a cancelled search gives is of
    /// no use.
    std::vector<std::string> run();

    void cancel() { bCancelled_ = true; }
    std::size_t filesDone() const { return nDone_; }
    std::size_t files() const { return nFiles_; }

private:
    void answerFromCache(std::vector<SearchPack> packs);
    void takeAnswers(const SearchPack& pack);
    void readOthers();
    void readShare(FileIndexer& indexer, const std::vector<std::size_t>& files);
    void noteAdded(FileIndexer& indexer, std::vector<std::size_t>& inPack, std::size_t file,
                   FileIndexer::Outcome outcome);
    void finishPack(FileIndexer& indexer, std::vector<std::size_t>& inPack);
    void readOfficeFiles();
    void compareRichFiles();
    std::string pathOf(std::size_t file) const { return sFolder_ + '/' + files_[file].sName; }

    std::string sFolder_;
    Keyword keyword_;
    std::string sPattern_;
    std::string sCacheKey_; // one search leaves out what another looks at
    const SearchCache& cache_;
    std::vector<FolderFile> files_;
    std::unordered_map<std::string_view, std::size_t> byName_; // into `files_`
    std::vector<char> answered_;
    std::vector<char> found_;
    std::vector<std::int64_t> outdated_;

    std::mutex mutex_; // guards what the helpers write
    std::vector<SearchPack> made_;
    std::vector<std::size_t> officeFiles_;
    std::vector<std::size_t> richFiles_;

    std::atomic<bool> bCancelled_ = false;
    std::atomic<std::size_t> nDone_ = 0;
    std::atomic<std::size_t> nFiles_ = 0;
};

} // namespace zorvo
