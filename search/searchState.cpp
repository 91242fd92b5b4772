#include "search/searchState.h"

#include "search/SearchForms.h"

namespace zorvo {

SearchState& searchState()
{
    static SearchState state;
    return state;
}

SearchForms*& searchForms()
{
    static SearchForms* forms = nullptr;
    return forms;
}

std::function<void()>& searchEngine()
{
    static std::function<void()> engine;
    return engine;
}

} // namespace zorvo
