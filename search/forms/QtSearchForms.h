#pragma once

#include "search/SearchForms.h"

namespace zorvo {

/// The search form and the wait notice of searchFormInstances.h.
class QtSearchForms : public SearchForms {
public:
    std::string libraryText() override;
    std::string keywordText() override;
    void refreshMessage() override;
    void showProgress(std::size_t nDone, std::size_t nFiles) override;
    void hideForms() override;
    void unloadForms() override;
};

/// Makes these forms the ones of `searchForms()` and FindSWDFiles the `searchEngine()`.
void installQtSearchForms();

} // namespace zorvo
