#include "branding/webPages.h"

#include "base/failure.h"
#include "branding/xmlCaptionLoaderManager.h"
#include "platform/Launcher.h"
#include "platform/Platform.h"

namespace zorvo {

namespace {

constexpr const char* kRootFolder = "C:\\";
constexpr std::uintptr_t kNoWindow = 0;

/// The contact link has always given its own parameters and folder: no browser minds them.
constexpr const char* kContactArgument = "1";

void openPage(const char* sTag, std::uintptr_t ownerWindow, const std::string& sAddress,
              const std::string& sParameters, const std::string& sDirectory)
{
    try {
        platform().launcher->open(sAddress, sParameters, sDirectory, Launcher::Show::normal, ownerWindow);
    } catch (const RunTimeError& error) {
        recordFailure(error);
        ReportError(sTag);
    }
}

} // namespace

void OpenContactUs(std::uintptr_t ownerWindow)
{
    openPage("TemplateTree.linkContactUs_Click", ownerWindow, sGetWebContactUs(), kContactArgument,
             kContactArgument);
}

void ZorvoQuickTour(std::uintptr_t ownerWindow)
{
    openPage("TemplateTree.ZorvoQuickTour", ownerWindow, sGetWebQuickTour(), "", kRootFolder);
}

void ZorvoMyAccount(std::uintptr_t ownerWindow)
{
    openPage("TemplateTree.ZorvoMyAccount", ownerWindow, sGetWebMyAccount(), "", kRootFolder);
}

void ZorvoOnTheWeb(std::optional<bool> bSecondPage, const std::optional<std::string>& sAddress)
{
    std::string sPage;
    if (sAddress)
        sPage = *sAddress;
    else
        sPage = bSecondPage ? sGetWebOnTheWeb3() : sGetWebOnTheWeb2();
    openPage("basZorvoBrendle.ZorvoOnTheWeb", kNoWindow, sPage, "", kRootFolder);
}

} // namespace zorvo
