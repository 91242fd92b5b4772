#include "search/forms/searchFormInstances.h"

#include "search/forms/SWDSearchMessage.h"
#include "search/forms/SearchSwdLib.h"

namespace zorvo {

DefaultInstance<SearchSwdLib>& searchSwdLib()
{
    static DefaultInstance<SearchSwdLib> instance;
    return instance;
}

DefaultInstance<SWDSearchMessage>& swdSearchMessage()
{
    static DefaultInstance<SWDSearchMessage> instance;
    return instance;
}

} // namespace zorvo
