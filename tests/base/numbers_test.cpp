#include "base/numbers.h"

#include "base/RunTimeError.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

using namespace zorvo;

namespace {

int numberOfFailure(const std::function<void()>& call)
{
    try {
        call();
    } catch (const RunTimeError& error) {
        return error.number();
    }
    return 0;
}

} // namespace

TEST(IsNumeric, TakesBlanksSignPointAndExponent)
{
    for (const char* text : {"0", "2004", " 2004 ", "+7", "-7", "5.", ".5", "-.5e3", "1E+5", "1e-5", "007"})
        EXPECT_TRUE(isNumeric(text)) << text;
}

TEST(IsNumeric, TakesNoOtherForm)
{
    for (const char* text :
         {"",    " ",   ".",     "+",  "-",     "1,000", "$5",  "0x10", "&H10", "1e",  "1e+", "1 2",
          "- 1", "--1", "2004a", "e5", "1.2.3", "\t5",   "5\n", "inf",  "nan",  "(5)", "٣"})
        EXPECT_FALSE(isNumeric(text)) << text;
}

TEST(ToDouble, ReadsEveryNumericForm)
{
    EXPECT_DOUBLE_EQ(toDouble(" +1.5e2 "), 150);
    EXPECT_DOUBLE_EQ(toDouble("-.5"), -0.5);
    EXPECT_DOUBLE_EQ(toDouble("5."), 5);
    EXPECT_DOUBLE_EQ(toDouble("0e999"), 0);
}

TEST(ToDouble, FailsWithTypeMismatchWhenNotNumeric)
{
    EXPECT_EQ(numberOfFailure([] { toDouble("12x"); }), kTypeMismatch);
    EXPECT_EQ(numberOfFailure([] { toDouble(""); }), kTypeMismatch);
}

TEST(ToDouble, OverflowsPastItsRangeHoweverThatIsWritten)
{
    EXPECT_EQ(numberOfFailure([] { toDouble("1e400"); }), kOverflow);
    EXPECT_EQ(numberOfFailure([] { toDouble("-1e400"); }), kOverflow);
    EXPECT_EQ(numberOfFailure([] { toDouble(std::string(400, '9')); }), kOverflow);
    EXPECT_EQ(numberOfFailure([] { toDouble(std::string(400, '9') + "e-10"); }), kOverflow);
}

TEST(ToDouble, ReadsWhatIsTooSmallAsZero)
{
    EXPECT_DOUBLE_EQ(toDouble("1e-400"), 0);
    EXPECT_DOUBLE_EQ(toDouble("0." + std::string(400, '0') + "1"), 0);
    EXPECT_DOUBLE_EQ(toDouble("-0." + std::string(400, '0') + "1e+10"), 0);
}

TEST(ToLong, RoundsAFractionHalfToEven)
{
    EXPECT_EQ(toLong("2004.5"), 2004);
    EXPECT_EQ(toLong("2005.5"), 2006);
    EXPECT_EQ(toLong("-0.5"), 0);
    EXPECT_EQ(toLong("2.51"), 3);
    EXPECT_EQ(toLong("-2147483648"), -2147483647 - 1);
    EXPECT_EQ(toLong("2147483647.4"), 2147483647);
}

TEST(ToLong, OverflowsPastThirtyTwoBits)
{
    EXPECT_EQ(numberOfFailure([] { toLong("2147483648"); }), kOverflow);
    EXPECT_EQ(numberOfFailure([] { toLong("2147483647.5"); }), kOverflow);
    EXPECT_EQ(numberOfFailure([] { toLong("-2147483649"); }), kOverflow);
    EXPECT_EQ(numberOfFailure([] { toLong("x"); }), kTypeMismatch);
}

TEST(ToInteger, OverflowsPastSixteenBits)
{
    EXPECT_EQ(toInteger("32767"), 32767);
    EXPECT_EQ(toInteger("-32768.5"), -32768);
    EXPECT_EQ(numberOfFailure([] { toInteger("32768"); }), kOverflow);
    EXPECT_EQ(numberOfFailure([] { toInteger("32767.5"); }), kOverflow);
    EXPECT_EQ(numberOfFailure([] { toInteger("-32769"); }), kOverflow);
}

TEST(LeadingNumber, ReadsWhatTheTextBeginsWith)
{
    EXPECT_DOUBLE_EQ(leadingNumber("11.0"), 11);
    EXPECT_DOUBLE_EQ(leadingNumber(" 16 beta"), 16);
    EXPECT_DOUBLE_EQ(leadingNumber("-2.5x"), -2.5);
    EXPECT_DOUBLE_EQ(leadingNumber("1e"), 1);
    EXPECT_DOUBLE_EQ(leadingNumber("beta 16"), 0);
    EXPECT_DOUBLE_EQ(leadingNumber(""), 0);
}

TEST(NumberText, IsTheShortestThatReadsAsTheSame)
{
    EXPECT_EQ(numberText(8), "8");
    EXPECT_EQ(numberText(8.9), "8.9");
    EXPECT_EQ(numberText(-0.25), "-0.25");
    EXPECT_DOUBLE_EQ(toDouble(numberText(1.0 / 3)), 1.0 / 3);
    EXPECT_DOUBLE_EQ(toDouble(numberText(-1.5e-300)), -1.5e-300);
}
