#pragma once

#include <cstddef>
#include <string>

namespace zorvo {

/// The windows of a search: the search form and the wait notice. The forms answer it; a test records it.
class SearchForms {
public:
    virtual ~SearchForms() = default;

    /// What `LibraryList` and `Keyword` of the search form hold, hidden or not.
    virtual std::string libraryText() = 0;
    virtual std::string keywordText() = 0;

    /// Paints the wait notice.
    virtual void refreshMessage() = 0;
    /// Shows in it how far the search is, and serves what waits but for a user's input.
    virtual void showProgress(std::size_t nDone, std::size_t nFiles) = 0;

    /// The wait notice, then the search form. Nothing happens to one that isn't loaded.
    virtual void hideForms() = 0;
    virtual void unloadForms() = 0;
};

/// Null until the forms are installed.
SearchForms*& searchForms();

} // namespace zorvo
