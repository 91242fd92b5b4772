#include "platform/pageProtocol.h"

#include <gtest/gtest.h>

namespace zorvo::pageProtocol {
namespace {

TEST(PageProtocol, ALineIsAWordAndWhatBelongsToIt)
{
    EXPECT_EQ(line("navigate", "https://www.zorvo.example/a b"), "navigate https://www.zorvo.example/a b");
    EXPECT_EQ(line("block"), "block");
    const Message message = parse("navigate 7 https://www.zorvo.example/");
    EXPECT_EQ(message.sWord, "navigate");
    EXPECT_EQ(message.sRest, "7 https://www.zorvo.example/");
    EXPECT_EQ(parse("block").sWord, "block");
    EXPECT_EQ(parse("block").sRest, "");
    EXPECT_EQ(parse("").sWord, "");
}

TEST(PageProtocol, NoTextBecomesASecondMessage)
{
    EXPECT_EQ(line("finished", "1 http://a/\nblock\r\n\x1b"), "finished 1 http://a/block");
}

TEST(PageProtocol, ALineWithoutMeasureIsNoMessage)
{
    EXPECT_EQ(parse("navigate " + std::string(kLongestLine, 'x')).sWord, "");
    EXPECT_EQ(parse("navigate " + std::string(kLongestLine - 9, 'x')).sWord, "navigate");
}

} // namespace
} // namespace zorvo::pageProtocol
