#include "window/IntervalTimer.h"

#include "tests/window/WindowTest.h"

#include <gmock/gmock.h>

#include <memory>

namespace zorvo {
namespace {

using testing::ElementsAre;

TEST(IntervalTimer, IsAtRestUntilItIsWritten)
{
    int nTicks = 0;
    IntervalTimer timer([&] { ++nTicks; });
    EXPECT_EQ(timer.interval(), 0);
    QTest::qWait(20);
    EXPECT_EQ(nTicks, 0);
}

TEST(IntervalTimer, FiresUntilItIsWrittenAgain)
{
    int nTicks = 0;
    IntervalTimer timer([&] { ++nTicks; });
    timer.setInterval(1);
    EXPECT_TRUE(waitUntil([&] { return nTicks >= 3; }));
    EXPECT_EQ(timer.interval(), 1);
    timer.setInterval(0);
    const int nThen = nTicks;
    QTest::qWait(20);
    EXPECT_EQ(nTicks, nThen);
}

TEST(IntervalTimer, AWriteStartsTheWaitAnew)
{
    int nTicks = 0;
    IntervalTimer timer([&] { ++nTicks; });
    timer.setInterval(600);
    // Longer than the interval together, each far shorter: a busy machine doesn't mix the two up.
    for (int i = 0; i < 5; ++i) {
        QTest::qWait(150);
        timer.setInterval(600);
    }
    EXPECT_EQ(nTicks, 0);
    EXPECT_TRUE(waitUntil([&] { return nTicks == 1; }));
}

TEST(IntervalTimer, MayBeDestroyedByItsHandler)
{
    std::unique_ptr<IntervalTimer> timer;
    int nTicks = 0;
    const std::string sCaptured = "a text that lives in the handler, on the heap";
    std::string sSeen;
    timer = std::make_unique<IntervalTimer>([&, sCaptured] {
        timer.reset();
        ++nTicks;
        sSeen = sCaptured;
    });
    timer->setInterval(1);
    EXPECT_TRUE(waitUntil([&] { return nTicks == 1; }));
    EXPECT_EQ(sSeen, sCaptured);
}

TEST(IntervalTimer, AFailureWithoutAFormIsReported)
{
    const ReportedFailures reported;
    IntervalTimer timer([&] {
        timer.setInterval(0);
        throw RunTimeError(53);
    });
    timer.setInterval(1);
    EXPECT_TRUE(waitUntil([&] { return !reported.descriptions.empty(); }));
    EXPECT_THAT(reported.descriptions, ElementsAre("File not found"));
}

} // namespace
} // namespace zorvo
