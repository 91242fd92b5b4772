#pragma once

#include <QIcon>

namespace zorvo {

/// An icon out of the program's resources. `name` is that of a drawing without its ".svg", such as
/// ":/tools/ID_NEW"; pictures of its common sizes may lie beside it ("ID_NEW-24.png"), and any other size is
/// drawn. Nothing is read before the icon is painted. An empty icon when there is no such drawing.
QIcon drawnIcon(const QString& name);

} // namespace zorvo
