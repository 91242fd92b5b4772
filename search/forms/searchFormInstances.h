#pragma once

#include "window/DefaultInstance.h"

namespace zorvo {

class SearchSwdLib;
class SWDSearchMessage;

/// The search form and the wait notice, as the search reaches them. Touching one loads it.
DefaultInstance<SearchSwdLib>& searchSwdLib();
DefaultInstance<SWDSearchMessage>& swdSearchMessage();

} // namespace zorvo
