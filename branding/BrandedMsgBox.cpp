#include "branding/BrandedMsgBox.h"

#include "branding/sRebrand.h"
#include "window/clsMousePointer.h"
#include "window/messageBox.h"
#include "window/messageBoxHelp.h"
#include "window/pendingEvents.h"

namespace zorvo {

int BrandedMsgBox(std::string& sPrompt, std::optional<int> nButtons, const std::optional<std::string>& sTitle,
                  const std::optional<std::string>& sHelpFile, std::optional<int> nContext,
                  const std::optional<std::string>& sTitleSuffix)
{
    processPendingEvents();
    const std::int16_t nPointer = screenPointer();
    setScreenPointer(0);

    const int nStyle = nButtons.value_or(kMsgOk);
    std::string sBoxTitle = sTitle.value_or("Zorvo's Brendle");
    if (sTitleSuffix)
        sBoxTitle += ":  " + *sTitleSuffix;
    sPrompt = sRebrand(sPrompt, false);
    sBoxTitle = sRebrand(sBoxTitle, false);

    const int nTopic = nContext.value_or(0);
    const int nResult =
        nTopic != 0 ? showMessageBoxWithHelp(sPrompt, nStyle, sBoxTitle, {sHelpFile.value_or("0"), nTopic})
                    : showMessageBox(sPrompt, nStyle, sBoxTitle);
    setScreenPointer(nPointer);
    return nResult;
}

int BrandedMsgBox(const std::string& sPrompt, std::optional<int> nButtons,
                  const std::optional<std::string>& sTitle, const std::optional<std::string>& sHelpFile,
                  std::optional<int> nContext, const std::optional<std::string>& sTitleSuffix)
{
    std::string sOwnPrompt = sPrompt;
    return BrandedMsgBox(sOwnPrompt, nButtons, sTitle, sHelpFile, nContext, sTitleSuffix);
}

} // namespace zorvo
