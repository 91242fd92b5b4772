#pragma once

#include "platform/Keyword.h"
#include "platform/WordIndex.h"
#include "platform/linux/filesearch/FileText.h"
#include "platform/linux/filesearch/SearchCache.h"
#include "platform/searchWords.h"

#include <functional>
#include <string>
#include <string_view>

namespace zorvo {

/// Reads files into packs, one thread's share of them.
class FileIndexer {
public:
    using IsEnough = FileText::IsEnough;
    enum class Outcome {
        indexed,
        tooRich,      // stands in the pack without words
        officeFormat, // isn't in the pack
        unreadable    // isn't in the pack
    };

    explicit FileIndexer(IsEnough isCancelled);
    ~FileIndexer() = default;
    FileIndexer(const FileIndexer&) = delete;
    FileIndexer& operator=(const FileIndexer&) = delete;

    /// Adds the text of a native file to the pack, as that of the file `sName` when another program has taken
    /// it out of that.
    Outcome add(const std::string& sNative, const FolderFile& file);
    /// As add, for a file that another program couldn't take a text out of.
    void addWithoutText(const FolderFile& file);
    /// The text of the file is in `sTextFile`.
    Outcome addText(const std::string& sTextFile, const FolderFile& file);

    /// Whether the text of a file holds all the words, for a file that is too rich for a pack.
    bool holds(const std::string& sNative, const Keyword& keyword);

    bool isEmpty() const { return pack_.files.empty(); }
    /// No more files should be added.
    bool isFull() const;
    SearchPack take();

private:
    struct OnWord {
        FileIndexer* indexer;
        void operator()(const CutWord& word) const { indexer->takeWord(word); }
    };

    void takeWord(const CutWord& word);
    FileText::Kind read(const std::string& sNative, FolderFile& asRead, const IsEnough& isEnough);
    Outcome endFile(const FolderFile& file, FileText::Kind kind);

    IsEnough isCancelled_;
    WordIndexBuilder builder_;
    SearchPack pack_;
    KeywordInText* directly_ = nullptr; // set while a file is only compared
    WordCutter<OnWord> cutter_;
    FileText text_;
};

} // namespace zorvo
