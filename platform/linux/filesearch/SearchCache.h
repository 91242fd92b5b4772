#pragma once

#include "platform/linux/filesearch/folderFiles.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zorvo {

class SqliteConnection;

/// A file whose text was taken out, as it was then.
struct SearchedFile {
    enum class Kind : std::uint8_t {
        indexed, // its words stand in the index of the pack
        tooRich, // it has too many words to keep
        unreadable,
        last = unreadable
    };

    FolderFile file;
    Kind kind = Kind::indexed;
};

/// Some files of one search's and the words of their texts, as WordIndexBuilder makes them, text by text in
/// the order of the files. A pack is never changed.
struct SearchPack {
    std::int64_t nId = 0; // the cache's own
    std::vector<SearchedFile> files;
    std::string sWords;
};

/// Keeps what was taken out of files, so that they need not be read again: for one user, in a file of which
/// several processes make use at once. It is a help and no more: what can't be read or written is as if it
/// weren't there. A damaged file is made anew. It stays below a number of bytes; what hasn't been used for
/// longest goes first.
class SearchCache {
public:
    static constexpr std::int64_t kMostBytes = std::int64_t(192) << 20U;

    /// The native path of the file; its folder is made when missing.
    explicit SearchCache(std::string sFile, std::int64_t nMostBytes = kMostBytes);

    std::vector<SearchPack> load(const std::string& sKey) const;
    /// Takes the packs of `outdated` out and puts the new ones in.
    void change(const std::string& sKey, const std::vector<std::int64_t>& outdated,
                const std::vector<SearchPack>& made) const;

private:
    void attempt(const std::function<void(const SqliteConnection&)>& work) const;

    std::string sFile_;
    std::int64_t nMostBytes_;
};

} // namespace zorvo
