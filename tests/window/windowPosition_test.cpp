#include "tests/window/WindowTest.h"
#include "window/Form.h"
#include "window/twips.h"
#include "window/windowPosition.h"

#include <QWindow>

namespace zorvo {
namespace {

TEST(WindowPosition, ComesBackAsStored)
{
    QWidget window;
    setClientGeometry(window, {1500, 3000, 9000, 6000});
    window.show();
    EXPECT_EQ(window.geometry(), QRect(100, 200, 600, 400));
    const TwipsGeometry stored = clientGeometry(window);
    EXPECT_EQ(stored.nLeft, 1500);
    EXPECT_EQ(stored.nTop, 3000);
    EXPECT_EQ(stored.nWidth, 9000);
    EXPECT_EQ(stored.nHeight, 6000);
}

TEST(WindowPosition, StaysWithinSixteenBits)
{
    QWidget window;
    window.setGeometry(-3000, 20, 3840, 2160);
    const TwipsGeometry stored = clientGeometry(window);
    EXPECT_EQ(stored.nLeft, -32768);
    EXPECT_EQ(stored.nWidth, 32767);
    EXPECT_EQ(stored.nHeight, 2160 * kTwipsPerPixel);
}

TEST(WindowPosition, ATopMostWindowIsNeitherHiddenNorMoved)
{
    struct HideCounter : QObject {
        int nHides = 0;
        bool eventFilter(QObject* /*watched*/, QEvent* event) override
        {
            nHides += event->type() == QEvent::Hide || event->type() == QEvent::WinIdChange;
            return false;
        }
    } counter;
    Form form("frm");
    form.setGeometry(40, 50, 300, 200);
    form.showModeless();
    form.installEventFilter(&counter);
    const QWindow* before = form.windowHandle();
    setTopMost(form, true);
    EXPECT_TRUE(form.windowFlags() & Qt::WindowStaysOnTopHint);
    EXPECT_TRUE(form.windowHandle()->flags() & Qt::WindowStaysOnTopHint);
    setTopMost(form, false);
    EXPECT_FALSE(form.windowHandle()->flags() & Qt::WindowStaysOnTopHint);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.windowHandle(), before);
    EXPECT_EQ(counter.nHides, 0);
    EXPECT_EQ(form.geometry(), QRect(40, 50, 300, 200));
    form.unload();
}

TEST(WindowPosition, AWindowMayBeTopMostBeforeItShows)
{
    QWidget window;
    setTopMost(window, true);
    EXPECT_FALSE(window.isVisible());
    window.show();
    EXPECT_TRUE(window.windowHandle()->flags() & Qt::WindowStaysOnTopHint);
}

TEST(WindowPosition, AnOwnedWindowBelongsToItsOwnerEvenHidden)
{
    QWidget owned;
    {
        Form owner("frmOwner");
        auto* child = new QWidget(&owner);
        setOwnerWindow(owned, *child);
        EXPECT_EQ(owned.windowHandle()->transientParent(), owner.windowHandle());
    }
    EXPECT_EQ(owned.windowHandle()->transientParent(), nullptr);
}

} // namespace
} // namespace zorvo
