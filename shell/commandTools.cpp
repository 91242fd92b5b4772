#include "shell/commandTools.h"

#include <initializer_list>
#include <string>
#include <utility>

namespace zorvo {

namespace {

constexpr const char* kSeparator = ToolBand::kSeparator;

struct Row {
    const char* sId;
    const char* sMenuCaption;
    const char* sToolbarCaption;
    const char* sCategory;
    const char* sStatusText;
    const char* sToolTip;
};

constexpr Row kRows[] = {
    {"ID_NEW", "&New...", "&New Document", "File", "New selected document(s).", "New Selected Document(s)"},
    {"ID_EXIT", "E&xit", "", "File", "Exits the application.", ""},
    {"ID_MYCURRENT_BRENDLE", "My &Current Brendle Only", "", "View",
     "View current Brendle in the list below.", "View current Brendle in the list below"},
    {"ID_MYCURRENTANDPRIOR_BRENDLE", "My Current Brendle and Prior &Releases", "", "View",
     "View all Brendle in the list below including prior versions.",
     "View all Brendle in the list below including prior versions"},
    {"ID_ALLBRENDLEOFFERINGS", "All of Zorvo's Brendle &Offerings...", "View &All Zorvo's Brendle...", "View",
     "Include all of Zorvo's Brendle offerings in the list below", "See all Brendle offerings"},
    {"ID_EXPAND", "E&xpand", "", "View", "", "Expand"},
    {"ID_COLLAPSE", "Co&llapse", "", "View", "", "Collapse"},
    {"ID_OPTIONS", "&Options...", "", "Tools", "Edit program options.", "Edit program options"},
    {"ID_PRODVERSION", "&Latest Version Report...", "", "Tools", "", ""},
    {"ID_SEARCHSABLEWOODLIBRARY", "&Search Sablewood Library...", "&Search Sablewood Library", "Tools",
     "Search Zorvo's Sablewood Library.", "Search Zorvo's Sablewood Library"},
    {"ID_SEARCHTREE", "Search Brendle Tree", "", "Tools", "", ""},
    {"ID_BRENDLEHELP", "Zorvo's Brendle &Help", "", "Help", "Zorvo Brendle Help.", "Brendle Help"},
    {"ID_CONTACTUS", "&Contact Us", "", "Help", "", "Contact Us"},
    {"ID_ZORVOFAQS", "&Frequently Asked Questions", "", "Help", "", "Access the Zorvo Web site for FAQ's"},
    {"ID_ZORVOMYACCOUNT", "&My Zorvo Account", "", "Help", "", "Access the Zorvo Web site for My Account"},
    {"ID_ZORVONETSUPPORT", "&Zorvo Support", "", "Help", "Access Zorvonet Support.", "Access Zorvo Support"},
    {"ID_ZORVOQUICKTOUR", "Zorvo Quick-&Tour", "", "Help", "Zorvo Quick-Tour.", "Zorvo Quick-Tour"},
    {"ID_ABOUT", "&About Zorvo's Brendle...", "", "Help", "", ""},
    {"ID_WORD", "Word", "", "File", "New Blank Document in Microsoft Word.",
     "New Blank Document in Microsoft Word"},
    {"ID_EXCEL", "Excel", "", "File", "New Blank Document in Microsoft Excel.",
     "New Blank Document in Microsoft Excel"},
    {"ID_SHOWZORVOMENUFORNONZORVO", "&Show the 'Zorvo Menu' for Non-Zorvo Documents", "", "Tools",
     "Display the Zorvo menu when non-Zorvo documents are active in Excel or Word.",
     "Display the Zorvo menu when non-Zorvo documents are active in Excel or Word"},
};

void addTools(ToolPool& pool)
{
    for (const Row& row : kRows) {
        Tool tool;
        tool.sId = row.sId;
        tool.sMenuCaption = row.sMenuCaption;
        tool.sToolbarCaption = row.sToolbarCaption;
        tool.sCategory = row.sCategory;
        tool.sStatusText = row.sStatusText;
        tool.sToolTip = row.sToolTip;
        tool.sIcon = std::string(":/tools/") + row.sId;
        pool.addTool(std::move(tool));
    }
    // The tools that mirror a setting.
    for (const char* sId : {"ID_MYCURRENT_BRENDLE", "ID_MYCURRENTANDPRIOR_BRENDLE", "ID_ALLBRENDLEOFFERINGS",
                            "ID_SHOWZORVOMENUFORNONZORVO"})
        pool.setState(sId, 0);
}

void addMenu(ToolPool& pool, const char* sCaption, std::initializer_list<std::string> ids)
{
    pool.addBand({sCaption, BandKind::subBand, ids});
    Tool title;
    title.sId = sCaption;
    title.sMenuCaption = sCaption;
    title.type = ToolType::ownsSubBand;
    title.sSubBand = sCaption;
    pool.addTool(std::move(title));
}

} // namespace

ToolPool commandTools()
{
    ToolPool pool;
    addTools(pool);
    addMenu(pool, "&File", {"ID_NEW", kSeparator, "ID_EXIT"});
    addMenu(pool, "&View",
            {"ID_MYCURRENT_BRENDLE", "ID_MYCURRENTANDPRIOR_BRENDLE", kSeparator, "ID_ALLBRENDLEOFFERINGS",
             kSeparator, "ID_EXPAND", "ID_COLLAPSE"});
    addMenu(pool, "&Tools", {"ID_OPTIONS", "ID_PRODVERSION"});
    addMenu(pool, "&Help",
            {"ID_BRENDLEHELP", kSeparator, "ID_CONTACTUS", "ID_ZORVOFAQS", "ID_ZORVOMYACCOUNT",
             "ID_ZORVONETSUPPORT", kSeparator, "ID_ABOUT"});
    pool.addBand({"Menu Bar", BandKind::menuBar, {"&File", "&View", "&Tools", "&Help"}});
    pool.addBand({"Standard",
                  BandKind::toolbar,
                  {"ID_NEW", kSeparator, "ID_SEARCHSABLEWOODLIBRARY", kSeparator, "ID_SEARCHTREE",
                   "ID_EXPAND", "ID_COLLAPSE", kSeparator, "ID_ALLBRENDLEOFFERINGS", kSeparator, "ID_EXCEL",
                   "ID_WORD", kSeparator, "ID_BRENDLEHELP"}});
    return pool;
}

} // namespace zorvo
