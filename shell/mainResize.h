#pragma once

/// How the parts of the main form follow its size. All lengths are twips.
namespace zorvo {

/// Where the right column begins.
inline constexpr int kInstructionsFromRight = 4720;

/// What the layout knows before the form's size is looked at.
struct MainFormRoom {
    int nTreeLeft = 0;
    /// As much as its texts take at the desktop's font.
    int nInstructionsHeight = 0;
    /// Down to the status bar. A large font leaves less than the arithmetic asks for.
    int nForTree = 0;
    int nForDesc = 0;
};

struct MainFormParts {
    int nPanel1Width = 0;
    int nInstructionsLeft = 0;
    int nDescLeft = 0;
    int nDescHeight = 0;
    int nTreeWidth = 0;
    int nTreeHeight = 0;
    int nDescLabelHeight = 0;
};

/// Brings the parts to a form of that width and height. A step for which the form is too small leaves its
/// part as it was, and the steps behind it go on.
void resizeMainForm(MainFormParts& parts, const MainFormRoom& room, int nWidth, int nHeight);

} // namespace zorvo
