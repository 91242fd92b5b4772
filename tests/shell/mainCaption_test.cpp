#include "shell/mainCaption.h"

#include <gtest/gtest.h>

namespace zorvo {
namespace {

TEST(MainCaption, IsTheCompanyAndTheProduct)
{
    EXPECT_EQ(sMainCaption("Zorvo"), "Zorvo's Brendle");
    EXPECT_EQ(sMainCaption("ABC"), "ABC's Brendle");
}

TEST(MainCaption, OtrReadsWithItsAmpersand)
{
    EXPECT_EQ(sMainCaption("OTR"), "OT&R's Brendle");
}

} // namespace
} // namespace zorvo
