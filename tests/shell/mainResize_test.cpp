#include "shell/mainResize.h"

#include <gtest/gtest.h>

namespace zorvo {
namespace {

constexpr int kWidth = 15900;
constexpr int kHeight = 10500;
constexpr int kUnlimited = 100000;

class MainResizeTest : public testing::Test {
protected:
    void resize(int nWidth = kWidth, int nHeight = kHeight) { resizeMainForm(parts, room, nWidth, nHeight); }

    MainFormRoom room{
        .nTreeLeft = 1800, .nInstructionsHeight = 2000, .nForTree = kUnlimited, .nForDesc = kUnlimited};
    MainFormParts parts;
};

TEST_F(MainResizeTest, TheFirstPanelLeaves3200ToTheOthers)
{
    resize();
    EXPECT_EQ(parts.nPanel1Width, kWidth - 3200);
}

TEST_F(MainResizeTest, TheFirstPanelKeepsItsLastWidthUpTo3200)
{
    resize(3201);
    EXPECT_EQ(parts.nPanel1Width, 1);
    resize();
    resize(3200);
    EXPECT_EQ(parts.nPanel1Width, kWidth - 3200);
    resize(0);
    EXPECT_EQ(parts.nPanel1Width, kWidth - 3200);
}

TEST_F(MainResizeTest, TheFramesStand4720And4715FromTheRight)
{
    resize();
    EXPECT_EQ(parts.nInstructionsLeft, kWidth - 4720);
    EXPECT_EQ(parts.nDescLeft, kWidth - 4715);
}

TEST_F(MainResizeTest, TheTreeIsMeasuredAgainstTheTallerDescription)
{
    resize();
    EXPECT_EQ(parts.nTreeHeight, 2000 + (kHeight - 2900) - 920);
}

TEST_F(MainResizeTest, TheTreeEnds40BeforeTheInstructions)
{
    resize();
    EXPECT_EQ(parts.nTreeWidth, (kWidth - 4720) - 1800 - 40);
}

TEST_F(MainResizeTest, TheDescriptionEnds3800LowerThanTheFormIsHighAndItsLabel360Less)
{
    resize();
    EXPECT_EQ(parts.nDescHeight, kHeight - 3800);
    EXPECT_EQ(parts.nDescLabelHeight, kHeight - 3800 - 360);
}

TEST_F(MainResizeTest, NeitherTreeNorDescriptionIsHigherThanTheRoomForIt)
{
    room.nForTree = 5000;
    room.nForDesc = 3000;
    resize();
    EXPECT_EQ(parts.nTreeHeight, 5000);
    EXPECT_EQ(parts.nDescHeight, 3000);
    EXPECT_EQ(parts.nDescLabelHeight, 3000 - 360);
}

TEST_F(MainResizeTest, AFormTooNarrowForTheTreeLeavesItAsWideAsItWas)
{
    resize();
    const int nBefore = parts.nTreeWidth;
    resize(4720 + 1800 + 39);
    EXPECT_EQ(parts.nTreeWidth, nBefore);
    EXPECT_EQ(parts.nInstructionsLeft, 1839) << "the steps before and behind go on";
    EXPECT_EQ(parts.nDescHeight, kHeight - 3800);
    resize(4720 + 1800 + 40);
    EXPECT_EQ(parts.nTreeWidth, 0);
}

TEST_F(MainResizeTest, AFormTooLowForOneStepRunsTheOthers)
{
    resize();
    resize(kWidth, 3000); // 100 for the first height of the description, too low for the second
    EXPECT_EQ(parts.nTreeHeight, 2000 + 100 - 920);
    EXPECT_EQ(parts.nDescHeight, 100);
    EXPECT_EQ(parts.nDescLabelHeight, kHeight - 3800 - 360) << "100 less 360 is nothing";
    resize(kWidth, 2000); // too low for the first, too
    EXPECT_EQ(parts.nDescHeight, 100);
    EXPECT_EQ(parts.nTreeHeight, 2000 + 100 - 920);
    EXPECT_EQ(parts.nTreeWidth, (kWidth - 4720) - 1800 - 40);
}

} // namespace
} // namespace zorvo
