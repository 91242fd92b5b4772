#include "platform/dosPath.h"

#include <gtest/gtest.h>

namespace zorvo {
namespace {

std::string cleaned(const std::string& path)
{
    const auto parsed = parseDosPath(path);
    return parsed ? dosPathText(*parsed) : "(none)";
}

TEST(DosPath, APathHasACapitalDriveAndSingleBackslashes)
{
    EXPECT_EQ(cleaned("c:\\a\\b"), "C:\\a\\b");
    EXPECT_EQ(cleaned("C:/a//b\\"), "C:\\a\\b");
    EXPECT_EQ(cleaned("C:"), "C:\\");
    EXPECT_EQ(cleaned("C:a"), "C:\\a");
}

TEST(DosPath, DotsAreWorkedOutAndStopAtTheRoot)
{
    EXPECT_EQ(cleaned("C:\\a\\.\\..\\b"), "C:\\b");
    EXPECT_EQ(cleaned("C:\\..\\..\\b"), "C:\\b");
    EXPECT_EQ(cleaned("C:\\...\\.b"), "C:\\...\\.b");
}

TEST(DosPath, ANativePathLiesOnDriveZ)
{
    EXPECT_EQ(cleaned("/"), "Z:\\");
    EXPECT_EQ(cleaned("/opt/x"), "Z:\\opt\\x");
}

TEST(DosPath, OtherTextsAreNoPaths)
{
    for (const std::string& text :
         {std::string(), std::string("a"), std::string("\\a"), std::string("\\\\s\\x"), std::string("//s/x"),
          std::string("C"), std::string("\u00E4:\\x"), std::string("C:\\a\0b", 6)})
        EXPECT_EQ(cleaned(text), "(none)") << text;
}

} // namespace
} // namespace zorvo
