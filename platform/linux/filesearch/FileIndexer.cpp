#include "platform/linux/filesearch/FileIndexer.h"

#include "base/RunTimeError.h"
#include "platform/linux/nativeFiles.h"

#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <limits>
#include <utility>

namespace zorvo {

namespace {

/// Files are full of text before a pack is.
constexpr std::size_t kMostBytesOfPack = std::size_t(8) << 20U;
/// A file that has just changed may change again without a later time.
constexpr std::chrono::milliseconds kSettled{100};
constexpr std::int64_t kNeverTheSame = std::numeric_limits<std::int64_t>::min();

FolderFile stateOf(int descriptor, const std::string& sName)
{
    struct stat status {};
    if (fstat(descriptor, &status) != 0)
        throwSystemError(errno);
    constexpr std::int64_t kNanoseconds = 1'000'000'000;
    return {sName, static_cast<std::uint64_t>(status.st_size),
            status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec};
}

bool isSettled(const FolderFile& file)
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::nanoseconds(file.nModified) < now - kSettled;
}

} // namespace

FileIndexer::FileIndexer(IsEnough isCancelled)
    : isCancelled_(std::move(isCancelled))
    , cutter_(OnWord{this})
    , text_([this](std::string_view text) { cutter_.take(text); })
{
}

void FileIndexer::takeWord(const CutWord& word)
{
    if (directly_)
        directly_->take(word);
    else
        builder_.addWord(word);
}

/// `asRead` tells the state that was read, which is never the state of any file when it changed meanwhile.
FileText::Kind FileIndexer::read(const std::string& sNative, FolderFile& asRead, const IsEnough& isEnough)
{
    const FileDescriptor file = openPlainFile(sNative);
    asRead = stateOf(file.get(), asRead.sName);
    const FileText::Kind kind = text_.read(file.get(), isEnough);
    cutter_.end();
    if (!isSettled(asRead) || stateOf(file.get(), asRead.sName) != asRead)
        asRead.nModified = kNeverTheSame;
    return kind;
}

FileIndexer::Outcome FileIndexer::add(const std::string& sNative, const FolderFile& file)
{
    try {
        FolderFile asRead = file;
        const FileText::Kind kind = read(sNative, asRead, isCancelled_);
        return endFile(asRead, kind);
    } catch (const RunTimeError&) { // it has gone, or isn't for this user
        cutter_.end();
        addWithoutText({file.sName, 0, kNeverTheSame});
        return Outcome::unreadable;
    }
}

FileIndexer::Outcome FileIndexer::addText(const std::string& sTextFile, const FolderFile& file)
{
    FolderFile ofText;
    const FileText::Kind kind = read(sTextFile, ofText, isCancelled_);
    return endFile(isSettled(file) ? file : FolderFile{file.sName, 0, kNeverTheSame}, kind);
}

FileIndexer::Outcome FileIndexer::endFile(const FolderFile& file, FileText::Kind kind)
{
    if (kind == FileText::Kind::officeFormat)
        return Outcome::officeFormat;
    if (kind == FileText::Kind::noText) {
        addWithoutText(file);
        return Outcome::unreadable;
    }
    const bool bKept = builder_.endText();
    pack_.files.push_back({file, bKept ? SearchedFile::Kind::indexed : SearchedFile::Kind::tooRich});
    return bKept ? Outcome::indexed : Outcome::tooRich;
}

void FileIndexer::addWithoutText(const FolderFile& file)
{
    builder_.discardText();
    builder_.endText();
    pack_.files.push_back({file, SearchedFile::Kind::unreadable});
}

bool FileIndexer::holds(const std::string& sNative, const Keyword& keyword)
{
    KeywordInText found(keyword);
    directly_ = &found;
    try {
        FolderFile asRead;
        read(sNative, asRead, [&] { return found.isFound() || isCancelled_(); });
    } catch (const RunTimeError&) {
        cutter_.end();
    }
    directly_ = nullptr;
    return found.isFound();
}

bool FileIndexer::isFull() const
{
    return pack_.files.size() >= WordIndexBuilder::kMostTexts || builder_.size() > kMostBytesOfPack;
}

SearchPack FileIndexer::take()
{
    pack_.sWords = builder_.take();
    return std::exchange(pack_, {});
}

} // namespace zorvo
