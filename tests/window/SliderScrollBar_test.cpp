#include "tests/window/WindowTest.h"
#include "window/SliderScrollBar.h"

#include <QPaintEvent>
#include <QScreen>

namespace zorvo {
namespace {

class PaintedPart : public QObject {
public:
    explicit PaintedPart(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            part += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
    QRegion part;
};

class SliderScrollBarTest : public testing::Test {
protected:
    SliderScrollBarTest()
        : bar_(Qt::Vertical, &window_)
        , painted_(bar_)
    {
        window_.resize(60, 400);
        bar_.setGeometry(10, 0, 20, 400);
        bar_.setRange(0, 500);
        bar_.setPageStep(50);
        bar_.setValue(100);
        window_.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window_));
        EXPECT_TRUE(waitUntil([this] { return !painted_.part.isEmpty(); }));
    }

    int paintedHeightAfter(int value)
    {
        QCoreApplication::processEvents();
        painted_.part = {};
        bar_.setValue(value);
        EXPECT_TRUE(waitUntil([this] { return !painted_.part.isEmpty(); }));
        return painted_.part.boundingRect().height();
    }

    QImage shown() { return window_.screen()->grabWindow(window_.winId()).toImage(); }

    QWidget window_;
    SliderScrollBar bar_;
    PaintedPart painted_;
};

TEST_F(SliderScrollBarTest, AStepPaintsTheSlidersWayAndNoMore)
{
    EXPECT_LT(paintedHeightAfter(105), bar_.height() / 4);
    EXPECT_GT(paintedHeightAfter(400), bar_.height() / 2);
}

TEST_F(SliderScrollBarTest, AnEndAnotherRangeAndAHeldSliderPaintAllOfIt)
{
    EXPECT_EQ(paintedHeightAfter(0), bar_.height());
    EXPECT_EQ(paintedHeightAfter(3), bar_.height()) << "the arrow may look different again";
    EXPECT_EQ(paintedHeightAfter(500), bar_.height());
    paintedHeightAfter(480);
    QCoreApplication::processEvents();
    painted_.part = {};
    bar_.setRange(0, 1000);
    EXPECT_TRUE(waitUntil([&] { return painted_.part.boundingRect() == bar_.rect(); }));
    bar_.setSliderDown(true);
    EXPECT_EQ(paintedHeightAfter(485), bar_.height());
}

TEST_F(SliderScrollBarTest, NothingOfTheLastSliderStays)
{
    if (shown().isNull())
        GTEST_SKIP() << "this platform has no picture of its screen";
    for (const int value : {101, 105, 180, 20, 0, 1, 300, 500, 499}) {
        paintedHeightAfter(value);
        QCoreApplication::processEvents();
        EXPECT_EQ(shown(), window_.grab().toImage().convertToFormat(shown().format())) << value;
    }
}

} // namespace
} // namespace zorvo
