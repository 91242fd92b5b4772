#pragma once

#include <QIcon>

class QPalette;

namespace zorvo::help {

enum class HelpIcon { back, forward, home, contents, help };

/// Drawn in the text colour of the palette, sharp at any size.
QIcon helpIcon(HelpIcon kind, const QPalette& palette);

} // namespace zorvo::help
