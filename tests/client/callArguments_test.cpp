#include "client/callArguments.h"

#include <gmock/gmock.h>
#include <sstream>

namespace zorvo {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> arrayOf(const std::string& sText)
{
    return std::get<std::vector<std::string>>(argumentFromText("as", sText).value());
}

std::string printed(const Value& value)
{
    std::ostringstream out;
    printResult(value, out);
    return out.str();
}

TEST(CallArgument, TakesTextAsItIs)
{
    EXPECT_EQ(argumentFromText("s", " 1 "), Value(std::string(" 1 ")));
    EXPECT_EQ(argumentFromText("s", ""), Value(std::string()));
}

TEST(CallArgument, TakesBooleansInTheirUsualForms)
{
    for (const char* text : {"true", "True", "TRUE", "1", "-1"})
        EXPECT_EQ(argumentFromText("b", text), Value(true)) << text;
    for (const char* text : {"false", "False", "0"})
        EXPECT_EQ(argumentFromText("b", text), Value(false)) << text;
    EXPECT_EQ(argumentFromText("b", "yes"), std::nullopt);
    EXPECT_EQ(argumentFromText("b", ""), std::nullopt);
}

TEST(CallArgument, TakesWholeNumbersInTheTypesRange)
{
    EXPECT_EQ(argumentFromText("i", "-2147483648"), Value(-2147483648.0));
    EXPECT_EQ(argumentFromText("i", "2147483648"), std::nullopt);
    EXPECT_EQ(argumentFromText("i", "1.5"), std::nullopt);
    EXPECT_EQ(argumentFromText("u", "0x80000002"), Value(2147483650.0));
    EXPECT_EQ(argumentFromText("u", "-1"), std::nullopt);
    EXPECT_EQ(argumentFromText("n", "32768"), std::nullopt);
    EXPECT_EQ(argumentFromText("i", "0x"), std::nullopt);
    EXPECT_EQ(argumentFromText("i", "0xfg"), std::nullopt);
    EXPECT_EQ(argumentFromText("i", "many"), std::nullopt);
    EXPECT_EQ(argumentFromText("d", "1e999"), std::nullopt);
    EXPECT_EQ(argumentFromText("d", "1.5"), Value(1.5));
}

TEST(CallArgument, TakesArraysInBrackets)
{
    EXPECT_THAT(arrayOf("[]"), IsEmpty());
    EXPECT_THAT(arrayOf("[a,b c]"), ElementsAre("a", "b c"));
    EXPECT_THAT(arrayOf("[,C:\\x]"), ElementsAre("", "C:\\x"));
    EXPECT_THAT(arrayOf("[a,]"), ElementsAre("a", ""));
    EXPECT_THAT(arrayOf(R"(["a,b","\"q\""])"), ElementsAre("a,b", "\"q\""));
    EXPECT_THAT(arrayOf("[1,2]"), ElementsAre("1", "2"));
    EXPECT_THAT(arrayOf("alone"), ElementsAre("alone"));
}

TEST(CallArgument, FindsAVariantsKind)
{
    EXPECT_EQ(argumentFromText("v", ""), Value());
    EXPECT_EQ(argumentFromText("v", "true"), Value(true));
    EXPECT_EQ(argumentFromText("v", "False"), Value(false));
    EXPECT_EQ(argumentFromText("v", "-1"), Value(std::int16_t{-1}));
    EXPECT_EQ(argumentFromText("v", "70000"), Value(std::int32_t{70000}));
    EXPECT_EQ(argumentFromText("v", "3000000000"), Value(std::uint32_t{3000000000U}));
    EXPECT_EQ(argumentFromText("v", "0.5"), Value(0.5));
    EXPECT_EQ(argumentFromText("v", "text"), Value(std::string("text")));
}

TEST(CallArgument, RefusesTypesThatPeopleCannotWrite)
{
    EXPECT_EQ(argumentFromText("a{sv}", "1"), std::nullopt);
}

TEST(CallResult, IsALineOfItsOwn)
{
    EXPECT_EQ(printed(true), "True\n");
    EXPECT_EQ(printed(false), "False\n");
    EXPECT_EQ(printed(std::int16_t{-1}), "-1\n");
    EXPECT_EQ(printed(std::int32_t{259}), "259\n");
    EXPECT_EQ(printed(std::uint32_t{4294967295U}), "4294967295\n");
    EXPECT_EQ(printed(0.1), "0.1\n");
    EXPECT_EQ(printed(std::string("a b")), "a b\n");
    EXPECT_EQ(printed(std::string()), "\n");
    EXPECT_EQ(printed(Value()), "");
}

TEST(CallResult, OfAnArrayIsALinePerEntry)
{
    EXPECT_EQ(printed(std::vector<std::string>{"", "C:\\a"}), "\nC:\\a\n");
    EXPECT_EQ(printed(std::vector<std::string>{}), "");
}

} // namespace zorvo
