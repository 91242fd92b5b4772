#include "search/ShowSearchForm.h"

#include "base/RunTimeError.h"
#include "search/forms/SWDSearchMessage.h"
#include "search/forms/SearchSwdLib.h"
#include "search/forms/searchFormInstances.h"
#include "search/searchState.h"

namespace zorvo {

void ShowSearchForm()
{
    if (searchState().bSearching)
        throw RunTimeError(kInvalidCall, "The library is being searched");
    SearchSwdLib& form = searchSwdLib().get();
    try {
        form.showModal();
    } catch (...) {
        // A form that is up belongs to the call that brought it up.
        const SearchSwdLib* left = searchSwdLib().ifLoaded();
        if (!left || !left->isVisible())
            searchSwdLib().unload();
        throw;
    }
    // A search that led to nothing to see has only hidden its forms.
    swdSearchMessage().unload();
    searchSwdLib().unload();
}

} // namespace zorvo
