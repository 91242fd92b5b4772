#pragma once

#include <string_view>

namespace zorvo::help {

/// Whether a page can be laid out in sensible time. The layout of a document has no bounds of its own: a
/// table within a table doubles its work, a list takes the square of its items, a table holds a cell for each
/// row and column, and once the lengths that a page names lead out of the coordinates it never ends.
bool canBeLaidOut(std::string_view page);

/// The same of a style sheet: no length in it is beyond all sense.
bool canBeStyledBy(std::string_view sheet);

} // namespace zorvo::help
