#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zorvo {

/// What the search of the example library keeps. The tables hold an entry per edition, in the order of the
/// index, and one unused at the end; they live until the next LoadLibraries. A test makes all of it anew with
/// `searchState() = SearchState()`.
struct SearchState {
    std::vector<std::string> sSWDID;
    std::vector<std::string> sSWDTitle;
    std::vector<std::string> sSWDName;
    /// Extensions, without a point, of the example files and of the result's template.
    std::vector<std::string> sSWDRdfExt;
    std::vector<std::string> sSWDTemplate;

    std::vector<bool> bSWDInstalled;
    /// Folder of the example files, without a closing backslash.
    std::vector<std::string> sSWDPath;
    /// The year or version found.
    std::vector<std::string> sSWDVersion;

    /// Editions in the index.
    std::int16_t nSWDCount = 0;
    /// The edition that the user chose.
    std::int16_t nSWDSelected = 0;

    /// What the last search looked for.
    std::string sSWDKeyword;
    /// Full paths of the examples that it found, by name; the first `nSWDFoundCount` count.
    std::vector<std::string> sSWDFoundFiles;
    std::int16_t nSWDFoundCount = 0;
    /// The example that comes next.
    std::int16_t nSWDFileIndex = 0;

    /// A search runs: its forms are in use, hidden or not.
    bool bSearching = false;
};

SearchState& searchState();

/// An entry of one of the tables. Throws RunTimeError 9 beyond it.
const std::string& tableEntry(const std::vector<std::string>& table, std::int16_t nIndex);

/// The search itself: it reads the search form, and hides and unloads that form and the wait notice. Empty
/// while none is installed; the form then offers no search.
std::function<void()>& searchEngine();

} // namespace zorvo
