#include "search/searchState.h"

#include "base/RunTimeError.h"
#include "search/SearchForms.h"

namespace zorvo {

SearchState& searchState()
{
    static SearchState state;
    return state;
}

const std::string& tableEntry(const std::vector<std::string>& table, std::int16_t nIndex)
{
    if (nIndex < 0 || static_cast<std::size_t>(nIndex) >= table.size())
        throw RunTimeError(kIndexOutOfRange);
    return table[static_cast<std::size_t>(nIndex)];
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
