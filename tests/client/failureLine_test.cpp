#include "client/failureLine.h"

#include <gtest/gtest.h>

namespace zorvo {

TEST(FailureLine, TellsNumberAndDescription)
{
    EXPECT_EQ(failureLine(RunTimeError(53, "File not found")), "Error 53 - File not found");
}

TEST(FailureLine, StaysOneLine)
{
    EXPECT_EQ(failureLine(RunTimeError(5, "a\r\n\r\nb\nc\r\n")), "Error 5 - a b c");
}

} // namespace zorvo
