#include "search/ShowSearchForm.h"

#include "search/forms/SearchSwdLib.h"
#include "search/forms/searchFormInstances.h"

namespace zorvo {

void ShowSearchForm()
{
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
    searchSwdLib().unload();
}

} // namespace zorvo
