#pragma once

namespace zorvo {

/// Shows the search form of the example library modally; it is unloaded when this returns. Throws
/// RunTimeError: 5 when it is up already or its search runs, 91 when the index of the library's editions is
/// missing, and whatever a search raised.
void ShowSearchForm();

} // namespace zorvo
