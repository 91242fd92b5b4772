#include "shell/mainResize.h"

#include <algorithm>

namespace zorvo {

namespace {

constexpr int kOtherPanels = 3200;
constexpr int kDescFromRight = 4715;
constexpr int kDescBelowTree = 2900;
constexpr int kTreeAboveDesc = 920;
constexpr int kBetweenTreeAndInstructions = 40;
constexpr int kDescFromHeight = 3800;
constexpr int kDescFrame = 360;

/// No part can be less than nothing wide or high.
void setLength(int& nLength, int nValue)
{
    if (nValue >= 0)
        nLength = nValue;
}

} // namespace

void resizeMainForm(MainFormParts& parts, const MainFormRoom& room, int nWidth, int nHeight)
{
    if (nWidth - kOtherPanels > 0)
        parts.nPanel1Width = nWidth - kOtherPanels;
    parts.nInstructionsLeft = nWidth - kInstructionsFromRight;
    parts.nDescLeft = nWidth - kDescFromRight;
    // The tree is measured against a taller description than the one that stands in the end, so that its
    // lower edge doesn't follow the description's.
    setLength(parts.nDescHeight, nHeight - kDescBelowTree);
    setLength(parts.nTreeHeight,
              std::min(room.nInstructionsHeight + parts.nDescHeight - kTreeAboveDesc, room.nForTree));
    setLength(parts.nTreeWidth, parts.nInstructionsLeft - room.nTreeLeft - kBetweenTreeAndInstructions);
    setLength(parts.nDescHeight, std::min(nHeight - kDescFromHeight, room.nForDesc));
    setLength(parts.nDescLabelHeight, parts.nDescHeight - kDescFrame);
}

} // namespace zorvo
