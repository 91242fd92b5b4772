#include "shell/commandTools.h"

#include <gmock/gmock.h>

namespace zorvo {
namespace {

using testing::ElementsAre;

struct Row {
    const char* sId;
    const char* sMenuCaption;
    const char* sToolbarCaption;
    const char* sCategory;
    const char* sStatusText;
    const char* sToolTip;
};

void PrintTo(const Row& row, std::ostream* stream)
{
    *stream << row.sId;
}

class CommandTool : public testing::TestWithParam<Row> {};

TEST_P(CommandTool, HasItsCaptionsCategoryAndTexts)
{
    const Row& row = GetParam();
    const ToolPool pool = commandTools();
    const Tool& tool = pool.tool(row.sId);
    EXPECT_EQ(tool.sId, row.sId);
    EXPECT_EQ(tool.sMenuCaption, row.sMenuCaption);
    EXPECT_EQ(tool.sToolbarCaption, row.sToolbarCaption);
    EXPECT_EQ(tool.sCategory, row.sCategory);
    EXPECT_EQ(tool.sStatusText, row.sStatusText);
    EXPECT_EQ(tool.sToolTip, row.sToolTip);
    EXPECT_EQ(tool.type, ToolType::button);
}

constexpr Row kRows[] = {
    {"ID_NEW", "&New...", "&New Document", "File", "New selected document(s).", "New Selected Document(s)"},
    {"ID_EXIT", "E&xit", "E&xit", "File", "Exits the application.", ""},
    {"ID_MYCURRENT_BRENDLE", "My &Current Brendle Only", "My &Current Brendle Only", "View",
     "View current Brendle in the list below.", "View current Brendle in the list below"},
    {"ID_MYCURRENTANDPRIOR_BRENDLE", "My Current Brendle and Prior &Releases",
     "My Current Brendle and Prior &Releases", "View",
     "View all Brendle in the list below including prior versions.",
     "View all Brendle in the list below including prior versions"},
    {"ID_ALLBRENDLEOFFERINGS", "All of Zorvo's Brendle &Offerings...", "View &All Zorvo's Brendle...", "View",
     "Include all of Zorvo's Brendle offerings in the list below", "See all Brendle offerings"},
    {"ID_EXPAND", "E&xpand", "E&xpand", "View", "", "Expand"},
    {"ID_COLLAPSE", "Co&llapse", "Co&llapse", "View", "", "Collapse"},
    {"ID_OPTIONS", "&Options...", "&Options...", "Tools", "Edit program options.", "Edit program options"},
    {"ID_PRODVERSION", "&Latest Version Report...", "&Latest Version Report...", "Tools", "", ""},
    {"ID_SEARCHSABLEWOODLIBRARY", "&Search Sablewood Library...", "&Search Sablewood Library", "Tools",
     "Search Zorvo's Sablewood Library.", "Search Zorvo's Sablewood Library"},
    {"ID_SEARCHTREE", "Search Brendle Tree", "Search Brendle Tree", "Tools", "", ""},
    {"ID_BRENDLEHELP", "Zorvo's Brendle &Help", "Zorvo's Brendle &Help", "Help", "Zorvo Brendle Help.",
     "Brendle Help"},
    {"ID_CONTACTUS", "&Contact Us", "&Contact Us", "Help", "", "Contact Us"},
    {"ID_ZORVOFAQS", "&Frequently Asked Questions", "&Frequently Asked Questions", "Help", "",
     "Access the Zorvo Web site for FAQ's"},
    {"ID_ZORVOMYACCOUNT", "&My Zorvo Account", "&My Zorvo Account", "Help", "",
     "Access the Zorvo Web site for My Account"},
    {"ID_ZORVONETSUPPORT", "&Zorvo Support", "&Zorvo Support", "Help", "Access Zorvonet Support.",
     "Access Zorvo Support"},
    {"ID_ZORVOQUICKTOUR", "Zorvo Quick-&Tour", "Zorvo Quick-&Tour", "Help", "Zorvo Quick-Tour.",
     "Zorvo Quick-Tour"},
    {"ID_ABOUT", "&About Zorvo's Brendle...", "&About Zorvo's Brendle...", "Help", "", ""},
    {"ID_WORD", "Word", "Word", "File", "New Blank Document in Microsoft Word.",
     "New Blank Document in Microsoft Word"},
    {"ID_EXCEL", "Excel", "Excel", "File", "New Blank Document in Microsoft Excel.",
     "New Blank Document in Microsoft Excel"},
    {"ID_SHOWZORVOMENUFORNONZORVO", "&Show the 'Zorvo Menu' for Non-Zorvo Documents",
     "&Show the 'Zorvo Menu' for Non-Zorvo Documents", "Tools",
     "Display the Zorvo menu when non-Zorvo documents are active in Excel or Word.",
     "Display the Zorvo menu when non-Zorvo documents are active in Excel or Word"},
};

INSTANTIATE_TEST_SUITE_P(All, CommandTool, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.sId); });

TEST(CommandTools, ThePoolHoldsTheCommandsAndTheFourMenuTitlesAndNoMore)
{
    EXPECT_EQ(commandTools().toolIds().size(), std::size(kRows) + 4);
}

TEST(CommandTools, TheBandsStandInTheirOrder)
{
    const ToolPool pool = commandTools();
    EXPECT_THAT(pool.band("Menu Bar").toolIds, ElementsAre("&File", "&View", "&Tools", "&Help"));
    EXPECT_EQ(pool.band("Menu Bar").kind, BandKind::menuBar);
    EXPECT_THAT(pool.band("&File").toolIds, ElementsAre("ID_NEW", "-", "ID_EXIT"));
    EXPECT_THAT(pool.band("&View").toolIds,
                ElementsAre("ID_MYCURRENT_BRENDLE", "ID_MYCURRENTANDPRIOR_BRENDLE", "-",
                            "ID_ALLBRENDLEOFFERINGS", "-", "ID_EXPAND", "ID_COLLAPSE"));
    EXPECT_THAT(pool.band("&Tools").toolIds, ElementsAre("ID_OPTIONS", "ID_PRODVERSION"));
    EXPECT_THAT(pool.band("&Help").toolIds,
                ElementsAre("ID_BRENDLEHELP", "-", "ID_CONTACTUS", "ID_ZORVOFAQS", "ID_ZORVOMYACCOUNT",
                            "ID_ZORVONETSUPPORT", "-", "ID_ABOUT"));
    EXPECT_THAT(pool.band("Standard").toolIds,
                ElementsAre("ID_NEW", "-", "ID_SEARCHSABLEWOODLIBRARY", "-", "ID_SEARCHTREE", "ID_EXPAND",
                            "ID_COLLAPSE", "-", "ID_ALLBRENDLEOFFERINGS", "-", "ID_EXCEL", "ID_WORD", "-",
                            "ID_BRENDLEHELP"));
    EXPECT_EQ(pool.band("Standard").kind, BandKind::toolbar);
}

TEST(CommandTools, EachMenuTitleOwnsItsSubBand)
{
    const ToolPool pool = commandTools();
    for (const char* sTitle : {"&File", "&View", "&Tools", "&Help"}) {
        EXPECT_EQ(pool.tool(sTitle).type, ToolType::ownsSubBand);
        EXPECT_EQ(pool.tool(sTitle).sSubBand, sTitle);
        EXPECT_EQ(pool.band(sTitle).kind, BandKind::subBand);
    }
}

TEST(CommandTools, FourToolsMirrorASetting)
{
    const ToolPool pool = commandTools();
    std::vector<std::string> withState;
    for (const Row& row : kRows)
        if (pool.tool(row.sId).state.has_value())
            withState.emplace_back(row.sId);
    EXPECT_THAT(withState, ElementsAre("ID_MYCURRENT_BRENDLE", "ID_MYCURRENTANDPRIOR_BRENDLE",
                                       "ID_ALLBRENDLEOFFERINGS", "ID_SHOWZORVOMENUFORNONZORVO"));
}

} // namespace
} // namespace zorvo
