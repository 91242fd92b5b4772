#include "shell/waitText.h"

#include <gtest/gtest.h>

namespace zorvo {
namespace {

TEST(NextWaitText, CyclesThroughOneTwoThreeDotsAndNone)
{
    std::int16_t nDots = 0;
    EXPECT_EQ(nextWaitText(nDots), " Please wait .");
    EXPECT_EQ(nextWaitText(nDots), " Please wait . .");
    EXPECT_EQ(nextWaitText(nDots), " Please wait . . .");
    EXPECT_EQ(nextWaitText(nDots), " Please wait");
    EXPECT_EQ(nextWaitText(nDots), " Please wait .");
}

} // namespace
} // namespace zorvo
