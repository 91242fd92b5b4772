#pragma once

class QWidget;

namespace zorvo {

/// Keys pressed while the mouse rests on a window within another's come to it and not to the one with the
/// keyboard: without the keyboard our window must not ask for them.
void selectKeys(const QWidget& window, bool bSelected);

} // namespace zorvo
