#include "window/windowPosition.h"

#include "window/twips.h"

#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace zorvo {

namespace {

int toStoredTwips(int pixels)
{
    constexpr int kLeast = std::numeric_limits<std::int16_t>::min();
    constexpr int kMost = std::numeric_limits<std::int16_t>::max();
    return std::clamp(toTwips(pixels), kLeast, kMost);
}

} // namespace

TwipsGeometry clientGeometry(const QWidget& window)
{
    const QRect area = window.geometry();
    return {toStoredTwips(area.left()), toStoredTwips(area.top()), toStoredTwips(area.width()),
            toStoredTwips(area.height())};
}

void setClientGeometry(QWidget& window, const TwipsGeometry& geometry)
{
    window.setGeometry(toPixels(geometry.nLeft), toPixels(geometry.nTop), toPixels(geometry.nWidth),
                       toPixels(geometry.nHeight));
}

void setTopMost(QWidget& window, bool bTop)
{
    QWindow* native = window.windowHandle();
    if (!native) {
        window.setWindowFlag(Qt::WindowStaysOnTopHint, bTop);
        return;
    }
    // The widget's own setter would hide a window to make it anew.
    const Qt::WindowFlags others = window.windowFlags() & ~Qt::WindowStaysOnTopHint;
    window.overrideWindowFlags(bTop ? others | Qt::WindowStaysOnTopHint : others);
    native->setFlag(Qt::WindowStaysOnTopHint, bTop);
    // Also at the end: a window manager puts it back under the active window of another program.
    window.raise();
}

void setOwnerWindow(QWidget& owned, const QWidget& owner)
{
    owned.winId();
    const QWidget* top = owner.window();
    top->winId();
    owned.windowHandle()->setTransientParent(top->windowHandle());
}

} // namespace zorvo
