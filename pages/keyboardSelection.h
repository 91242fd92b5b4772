#pragma once

class QWidget;

namespace zorvo {

/// Keys pressed while the mouse rests on a window within another's come to it and not to the one with the
/// keyboard: without the keyboard our window must not ask for them.
void selectKeys(const QWidget& window, bool bSelected);

/// A window within another's gets the keyboard when it takes it itself: the desktop knows the outer one
/// alone.
void takeKeyboard(const QWidget& window);

} // namespace zorvo
