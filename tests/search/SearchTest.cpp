#include "tests/search/SearchTest.h"

#include "base/sessionState.h"
#include "branding/xmlCaptionLoaderManager.h"
#include "catalogue/basHTMLHelp.h"
#include "catalogue/catalogueState.h"
#include "search/searchState.h"
#include "window/clsMousePointer.h"

namespace zorvo {

namespace {

void freshState()
{
    sessionState() = SessionState();
    captionState() = CaptionState();
    catalogueState() = CatalogueState();
    searchState() = SearchState();
    searchEngine() = {};
    mainFormGate() = nullptr;
    goMousePointer().ClearMousePointer();
    ReleaseHTMLHelp();
}

} // namespace

SearchTest::SearchTest()
{
    freshState();
    platform().office = office;
    platform().help = help;
    mainFormGate() = &gate;
    fakes.files->addFile("C:\\Zorvo\\TreeData\\SWDXML.xml",
                         indexText(productText("Library", "SablewoodLibrary") +
                                   productText("Governments", "SablewoodGovernment") +
                                   productText("Nonprofits", "SablewoodNonprofit")));
}

SearchTest::~SearchTest()
{
    freshState();
}

void SearchTest::installEdition(const std::string& sID, const std::string& sYear, const std::string& sPath)
{
    fakes.registry->setText(HKEY_LOCAL_MACHINE,
                            "Software\\Zorvo\\Quillbook\\" + sID + "\\" + sYear + "\\InstallDefaults",
                            "AppPath2", sPath);
}

std::string indexText(const std::string& sProducts, const std::string& sGroup)
{
    return "<SWDInformation group=\"" + sGroup + "\">" + sProducts + "</SWDInformation>";
}

std::string productText(const std::string& sName, const std::string& sID)
{
    return "<Product><name> " + sName + " </name><ID> " + sID + " </ID><title> Title of " + sName +
           " </title><rdfExt> rtf </rdfExt><template> dot </template></Product>";
}

} // namespace zorvo
