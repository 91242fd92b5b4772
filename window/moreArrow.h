#pragma once

#include <QIcon>

namespace zorvo {

/// The double arrow of a bar that hides what it has no room for. It has the colour of the desktop's texts at
/// the time it is painted; Qt's own is black on whatever the desktop shows.
QIcon moreArrow(Qt::Orientation orientation);

} // namespace zorvo
