#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace zorvo {

/// What makes the result of a search: BuildExampleDocument.h has it. A test puts its own in the place.
struct ResultDocuments {
    std::function<void()> BuildExampleDocument;
    std::function<void(const std::string& sFolder, const std::string& sKeyword, std::int16_t nSelected)>
        FilterMasterDocument;
};

ResultDocuments& resultDocuments();

/// Files that a search uses at most.
constexpr std::int16_t kMostFoundFiles = 100;

/// Searches the examples of the edition that the search form shows for the words in it, tells the user what
/// was found, and has the result document made. The search form and the wait notice are up; they are unloaded
/// here, but for a user who doesn't want to see what was found: then they are hidden. A failure of the search
/// is told to the user. Throws RunTimeError 429 when there is no Word.
void FindSWDFiles();

} // namespace zorvo
