#include "catalogue/clsHTMLHelp.h"

#include "base/RunTimeError.h"
#include "base/paths.h"
#include "branding/brandedFiles.h"
#include "branding/companyIdentity.h"
#include "platform/Machine.h"
#include "platform/Platform.h"
#include "platform/machineAccess.h"
#include "window/pendingEvents.h"

namespace zorvo {

namespace {
constexpr int kInFrontMs = 250;
} // namespace

clsHTMLHelp::~clsHTMLHelp()
{
    if (mhHelpWindow_ == 0 || !platform().help)
        return;
    try {
        platform().help->show(0, {}, HelpViewer::kCloseAll, 0);
    } catch (const RunTimeError&) { // a viewer that is gone has closed its windows
    }
}

void clsHTMLHelp::HTMLHelpContext(std::uint32_t nContext)
{
    show(HelpViewer::kContext, nContext);
}

void clsHTMLHelp::HTMLHelpDisplayContentsAndIndex()
{
    show(HelpViewer::kDisplayIndex, 0);
}

void clsHTMLHelp::HTMLHelpDisplayTOC()
{
    show(HelpViewer::kDisplayContents, 0);
}

void clsHTMLHelp::HTMLHelpDisplayTopic()
{
    show(HelpViewer::kDisplayTopic, 0);
}

void clsHTMLHelp::show(HelpViewer::Command command, std::uint32_t nData)
{
    msHelpFile_ = sHelpFile();
    if (msHelpFile_.empty())
        return;
    mhHelpWindow_ = platform().help ? platform().help->show(mhWnd_, msHelpFile_, command, nData) : 0;
    BringHelpToFront();
}

std::string clsHTMLHelp::sHelpFile()
{
    const std::string sCompany = GetCompanyID();
    std::string sFile = GetBrandedFilePath("QBK_HELP.chm");
    if (sCompany == "Zorvo")
        return sFile;
    if (sFile == msLastSource_)
        return msLastCopy_;
    // The company stands as a plain prefix of the copy's name, with nothing between.
    msLastCopy_ = sGetAppDataFolder() + "\\Zorvo\\" + sCompany + sGetFileName(sFile, false);
    try {
        CopyFileMakingFolder(sFile, msLastCopy_);
    } catch (const RunTimeError&) { // the viewer then shows what it shows for a missing file
    }
    msLastSource_ = sFile;
    return msLastCopy_;
}

void clsHTMLHelp::BringHelpToFront() const
{
    // No window: there is nothing to bring.
    if (mhHelpWindow_ == 0)
        return;
    platform().help->setTopMost(mhHelpWindow_, true);
    processPendingEvents();
    platform().machine->sleep(kInFrontMs);
    platform().help->setTopMost(mhHelpWindow_, false);
}

} // namespace zorvo
