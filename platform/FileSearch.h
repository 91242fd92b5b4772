#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace zorvo {

/// What a search of files is about.
struct FileQuestion {
    /// The folder, as a backslash path. Its sub-folders aren't searched.
    std::string sLookIn;
    /// What the text of a file must hold, as a user types it.
    std::string sTextOrProperty;
    /// A name with `?` and `*`, such as "*.rtf"; empty means every name.
    std::string sFileName;
};

/// Finds the files of a folder by the words in their text, as the word processor used to do itself.
///
/// A file is found when its text holds all the words of the question, in any order. A word is a run of
/// letters and digits, all else stands between words, in the question as in the text. Words match whole and
/// without regard to case; in a question `?` stands for one character and `*` for any number of characters of
/// a word. A question of blanks alone asks for nothing, so that every file answers it; one of other marks
/// alone has no word that a file could hold.
///
/// The text is what a reader of the document sees in its body: of formatted files no hidden text, no field
/// codes, no names of fonts and styles. A file that can't be read is passed over.
class FileSearch {
public:
    /// Called about every 20 ms on the thread that searches, so that windows stay painted. What it throws
    /// ends the search and reaches the caller.
    using Progress = std::function<void(std::size_t nDone, std::size_t nFiles)>;

    virtual ~FileSearch() = default;

    /// The full paths of the files found, by name ascending without regard to case. A folder that isn't there
    /// has none. The files are read as they are now, however often they were searched before.
    /// Throws RunTimeError 429 when files are in a format that only the office suite reads, and there is
    /// none.
    virtual std::vector<std::string> find(const FileQuestion& question, const Progress& progress) = 0;
};

} // namespace zorvo
