#pragma once

namespace zorvo {

/// Brings the user's copy of the spreadsheet add-in up to date with the one in the program folder. A copy
/// that isn't there is not made: installing the add-in is the user's affair. Throws RunTimeError when the
/// copying fails.
void RefreshAddInCopy();

} // namespace zorvo
