#pragma once

class QWidget;

namespace zorvo {

/// Where a window's client area is on the screen. Lengths are twips, each within 16 bits.
struct TwipsGeometry {
    int nLeft = 0;
    int nTop = 0;
    int nWidth = 0;
    int nHeight = 0;
};

/// The same that setClientGeometry takes, so that a window comes back where it was.
TwipsGeometry clientGeometry(const QWidget& window);
void setClientGeometry(QWidget& window, const TwipsGeometry& geometry);

/// Keeps the window in front of all others, or leaves it in front until another one comes there. It isn't
/// moved, sized or hidden.
void setTopMost(QWidget& window, bool bTop);

/// Keeps `owned` above `owner`, shown or not. Either may go first.
void setOwnerWindow(QWidget& owned, const QWidget& owner);

} // namespace zorvo
