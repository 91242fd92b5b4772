#include "base/failure.h"
#include "window/ImageList.h"
#include "window/clsMousePointer.h"
#include "window/guardedSlot.h"
#include "window/messageBox.h"

#include <gtest/gtest.h>

namespace zorvo {
namespace {

TEST(Console, AMessageGoesToStandardErrorAndIsAnsweredWithOk)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(showMessageBox("First line\r\nsecond & last", kMsgYesNo, "Title"), kMsgResultOk);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "First line\nsecond & last\n");
}

TEST(Console, AHandlerTakesTheMessage)
{
    const MessageBoxHandler before = setMessageBoxHandler([](const auto&, int, const auto&) { return 6; });
    EXPECT_EQ(showMessageBox("?", kMsgYesNo, ""), kMsgResultYes);
    setMessageBoxHandler(before);
}

TEST(Console, TheBusyPointerCountsAndShowsNothing)
{
    goMousePointer().setMousePointer(11);
    EXPECT_EQ(goMousePointer().MousePointer(), 11);
    EXPECT_EQ(screenPointer(), 0);
    goMousePointer().setMousePointer(0);
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

TEST(Console, AGuardedFailureIsRecorded)
{
    gnErrNumber = 0;
    EXPECT_FALSE(runGuarded(nullptr, [] { throw RunTimeError(53); }));
    EXPECT_EQ(gnErrNumber, 53);
}

TEST(Console, APictureIsReadWithoutAUserInterface)
{
    // The smallest bitmap: one white pixel.
    const std::string bitmap(
        "BM\x3a\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x01\0\0\0\x01\0\0\0\x01\0\x18\0\0\0\0\0\x04"
        "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\xff\xff\xff\0",
        58);
    EXPECT_NE(Picture::fromBytes(bitmap), nullptr);
    EXPECT_THROW(Picture::fromBytes("no picture"), RunTimeError);
}

} // namespace
} // namespace zorvo
