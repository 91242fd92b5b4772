#include "platform/linux/filesearch/FolderSearch.h"

#include "base/text.h"
#include "platform/linux/filesearch/OfficeTexts.h"
#include "platform/linux/filesearch/folderFiles.h"

#include <algorithm>
#include <future>
#include <thread>

namespace zorvo {

namespace {

/// Packs of a few changed files are read into a new one when there are more of them.
constexpr std::size_t kMostSmallPacks = 16;
constexpr std::size_t kSmallPack = 64;
constexpr std::size_t kMostReaders = 8;

std::vector<std::vector<std::size_t>> sharesOf(const std::vector<std::size_t>& files, std::size_t nReaders)
{
    const std::size_t nShare =
        std::clamp<std::size_t>(files.size() / (nReaders * 2) + 1, 16, WordIndexBuilder::kMostTexts);
    std::vector<std::vector<std::size_t>> shares;
    for (std::size_t at = 0; at < files.size(); at += nShare)
        shares.emplace_back(files.begin() + static_cast<std::ptrdiff_t>(at),
                            files.begin() + static_cast<std::ptrdiff_t>(std::min(at + nShare, files.size())));
    return shares;
}

} // namespace

FolderSearch::FolderSearch(std::string sFolder, const std::string& sText, std::string sPattern,
                           const SearchCache& cache)
    : sFolder_(std::move(sFolder))
    , keyword_(sText)
    , sPattern_(std::move(sPattern))
    , sCacheKey_(sFolder_ + '\0' + upperCase(sPattern_))
    , cache_(cache)
{
}

std::vector<std::string> FolderSearch::run()
{
    if (keyword_.isBeyondWords())
        return {};
    auto packs = std::async(std::launch::async, [this] { return cache_.load(sCacheKey_); });
    files_ = filesOfFolder(sFolder_, sPattern_);
    nFiles_ = files_.size();
    answered_.assign(files_.size(), 0);
    found_.assign(files_.size(), 0);
    for (std::size_t i = 0; i < files_.size(); ++i)
        byName_.emplace(files_[i].sName, i);

    answerFromCache(packs.get());
    readOthers();
    readOfficeFiles();
    compareRichFiles();
    if (!bCancelled_)
        cache_.change(sCacheKey_, outdated_, made_);

    std::vector<std::string> names;
    for (std::size_t i = 0; i < files_.size(); ++i)
        if (found_[i] != 0)
            names.push_back(files_[i].sName);
    return names;
}

void FolderSearch::answerFromCache(std::vector<SearchPack> packs)
{
    const auto isCurrent = [this](const SearchedFile& one) {
        const auto file = byName_.find(one.file.sName);
        return file != byName_.end() && files_[file->second] == one.file;
    };
    const auto nSmall = std::count_if(packs.begin(), packs.end(),
                                      [](const SearchPack& pack) { return pack.files.size() < kSmallPack; });
    const bool bJoinSmall = static_cast<std::size_t>(nSmall) > kMostSmallPacks;
    for (const SearchPack& pack : packs) {
        const auto nCurrent =
            static_cast<std::size_t>(std::count_if(pack.files.begin(), pack.files.end(), isCurrent));
        const bool bMostlyGone = nCurrent * 2 < pack.files.size();
        if (bMostlyGone || (bJoinSmall && pack.files.size() < kSmallPack))
            outdated_.push_back(pack.nId);
        else
            takeAnswers(pack);
    }
}

void FolderSearch::takeAnswers(const SearchPack& pack)
{
    const std::optional<WordIndex::Texts> texts = WordIndex(pack.sWords).find(keyword_);
    if (!texts) {
        outdated_.push_back(pack.nId);
        return;
    }
    for (std::size_t i = 0; i < pack.files.size(); ++i) {
        const SearchedFile& one = pack.files[i];
        const auto file = byName_.find(one.file.sName);
        if (file == byName_.end() || files_[file->second] != one.file)
            continue;
        const std::size_t nFile = file->second;
        if (one.kind == SearchedFile::Kind::tooRich && answered_[nFile] == 0)
            richFiles_.push_back(nFile);
        else
            found_[nFile] = one.kind == SearchedFile::Kind::indexed && texts->test(i) ? 1 : 0;
        answered_[nFile] = 1;
    }
}

void FolderSearch::readOthers()
{
    std::vector<std::size_t> files;
    for (std::size_t i = 0; i < files_.size(); ++i)
        if (answered_[i] == 0)
            files.push_back(i);
    nDone_ = files_.size() - files.size();
    // More than there are processors: some of them wait for the disk.
    const std::size_t nReaders =
        std::clamp<std::size_t>(std::size_t(2) * std::thread::hardware_concurrency(), 2, kMostReaders);
    const auto shares = sharesOf(files, nReaders);
    std::atomic<std::size_t> nNext = 0;
    std::vector<std::future<void>> readers;
    for (std::size_t i = 0; i < std::min(nReaders, shares.size()); ++i)
        readers.push_back(std::async(std::launch::async, [&] {
            FileIndexer indexer([this] { return bCancelled_.load(); });
            for (std::size_t share = nNext++; share < shares.size() && !bCancelled_; share = nNext++)
                readShare(indexer, shares[share]);
        }));
    for (std::future<void>& reader : readers)
        reader.get();
}

void FolderSearch::readShare(FileIndexer& indexer, const std::vector<std::size_t>& files)
{
    std::vector<std::size_t> inPack;
    for (const std::size_t file : files) {
        if (bCancelled_)
            return;
        const FileIndexer::Outcome outcome = indexer.add(pathOf(file), files_[file]);
        if (outcome == FileIndexer::Outcome::officeFormat) {
            const std::lock_guard lock(mutex_);
            officeFiles_.push_back(file);
            continue;
        }
        noteAdded(indexer, inPack, file, outcome);
    }
    finishPack(indexer, inPack);
}

/// A file has come into the pack.
void FolderSearch::noteAdded(FileIndexer& indexer, std::vector<std::size_t>& inPack, std::size_t file,
                             FileIndexer::Outcome outcome)
{
    ++nDone_;
    inPack.push_back(file);
    if (outcome == FileIndexer::Outcome::tooRich) {
        const std::lock_guard lock(mutex_);
        richFiles_.push_back(file);
    }
    if (indexer.isFull())
        finishPack(indexer, inPack);
}

/// `inPack` are the pack's files, in order.
void FolderSearch::finishPack(FileIndexer& indexer, std::vector<std::size_t>& inPack)
{
    if (inPack.empty())
        return;
    SearchPack pack = indexer.take();
    const WordIndex::Texts texts = WordIndex(pack.sWords).find(keyword_).value_or(WordIndex::Texts());
    for (std::size_t i = 0; i < inPack.size(); ++i)
        found_[inPack[i]] = // no other thread has this file
            pack.files[i].kind == SearchedFile::Kind::indexed && texts.test(i) ? 1 : 0;
    inPack.clear();
    const std::lock_guard lock(mutex_);
    made_.push_back(std::move(pack));
}

void FolderSearch::readOfficeFiles()
{
    if (officeFiles_.empty() || bCancelled_)
        return;
    std::sort(officeFiles_.begin(), officeFiles_.end());
    std::vector<std::string> paths;
    for (const std::size_t file : officeFiles_)
        paths.push_back(pathOf(file));
    FileIndexer indexer([this] { return bCancelled_.load(); });
    std::vector<std::size_t> inPack;
    const auto take = [&](std::size_t i, const std::optional<std::string>& sTextFile) {
        const std::size_t file = officeFiles_[i];
        FileIndexer::Outcome outcome = FileIndexer::Outcome::unreadable;
        if (sTextFile)
            outcome = indexer.addText(*sTextFile, files_[file]);
        else
            indexer.addWithoutText(files_[file]);
        noteAdded(indexer, inPack, file, outcome);
    };
    takeOfficeTexts(paths, take, [this] { return bCancelled_.load(); });
    finishPack(indexer, inPack);
}

void FolderSearch::compareRichFiles()
{
    FileIndexer indexer([this] { return bCancelled_.load(); });
    for (const std::size_t file : richFiles_)
        found_[file] = indexer.holds(pathOf(file), keyword_) ? 1 : 0;
}

} // namespace zorvo
