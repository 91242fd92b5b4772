#include "search/searchState.h"

namespace zorvo {

SearchState& searchState()
{
    static SearchState state;
    return state;
}

std::function<void()>& searchEngine()
{
    static std::function<void()> engine;
    return engine;
}

} // namespace zorvo
