#include "branding/webPages.h"

#include "base/failure.h"
#include "branding/xmlCaptionLoaderManager.h"
#include "platform/Launcher.h"
#include "platform/Platform.h"

namespace zorvo {

namespace {

constexpr const char* kRootFolder = "C:\\";

/// The contact link has always given its own parameters and folder: no browser minds them.
constexpr const char* kContactArgument = "1";

void openPage(const char* sTag, const std::string& sAddress, const std::string& sParameters,
              const std::string& sDirectory)
{
    try {
        platform().launcher->open(sAddress, sParameters, sDirectory, Launcher::Show::normal);
    } catch (const RunTimeError& error) {
        recordFailure(error);
        ReportError(sTag);
    }
}

} // namespace

void OpenContactUs()
{
    openPage("TemplateTree.linkContactUs_Click", sGetWebContactUs(), kContactArgument, kContactArgument);
}

void ZorvoQuickTour()
{
    openPage("TemplateTree.ZorvoQuickTour", sGetWebQuickTour(), "", kRootFolder);
}

void ZorvoMyAccount()
{
    openPage("TemplateTree.ZorvoMyAccount", sGetWebMyAccount(), "", kRootFolder);
}

void ZorvoOnTheWeb(std::optional<bool> bSecondPage, const std::optional<std::string>& sAddress)
{
    std::string sPage;
    if (sAddress)
        sPage = *sAddress;
    else
        sPage = bSecondPage ? sGetWebOnTheWeb3() : sGetWebOnTheWeb2();
    openPage("basZorvoBrendle.ZorvoOnTheWeb", sPage, "", kRootFolder);
}

} // namespace zorvo
