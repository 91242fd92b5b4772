#include "tree/productLabel.h"

#include <gtest/gtest.h>

namespace zorvo {
namespace {

TEST(ProductLabel, WritesAYearOfEightCharactersAsMonthAndYear)
{
    EXPECT_EQ(sProductLabel("Name", "20071101"), "Name (11/07)");
}

TEST(ProductLabel, WritesTheMonthWithoutALeadingZero)
{
    EXPECT_EQ(sProductLabel("Name", "20070701"), "Name (7/07)");
}

TEST(ProductLabel, WritesNothingForMonthZero)
{
    EXPECT_EQ(sProductLabel("Name", "20070001"), "Name (/07)");
}

TEST(ProductLabel, WritesAnyOtherYearAsItStands)
{
    EXPECT_EQ(sProductLabel("Name", "2007"), "Name 2007");
    EXPECT_EQ(sProductLabel("Name", "200711011"), "Name 200711011");
    EXPECT_EQ(sProductLabel("Name", ""), "Name ");
}

TEST(ProductLabel, CountsCharactersNotBytes)
{
    EXPECT_EQ(sProductLabel("Name", "\u00e92071105"), "Name (11/07)");
}

TEST(ProductLabel, IsDueInThreeGroupsWhateverTheirCase)
{
    EXPECT_TRUE(bNeedsYearLabel("QUILLBOOK", "Name"));
    EXPECT_TRUE(bNeedsYearLabel("sablewood libraries", "Name"));
    EXPECT_TRUE(bNeedsYearLabel("Fennimore Composer", "Name"));
    EXPECT_FALSE(bNeedsYearLabel("Quillbook Practice Management", "Name"));
    EXPECT_FALSE(bNeedsYearLabel("Tessora", "Name"));
}

TEST(ProductLabel, IsDueForEvaluationEditionsWhateverTheirCase)
{
    EXPECT_TRUE(bNeedsYearLabel("Tessora", "An EVALUATION of it"));
    EXPECT_FALSE(bNeedsYearLabel("Tessora", "An evaluator"));
}

} // namespace
} // namespace zorvo
