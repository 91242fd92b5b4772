#include "shell/ReportError.h"

#include "base/failure.h"
#include "base/failureLog.h"
#include "branding/BrandedMsgBox.h"
#include "shell/errorLog.h"
#include "window/clsMousePointer.h"
#include "window/messageBox.h"

namespace zorvo {

namespace {

using Text = std::optional<std::string>;

/// The busy mark against a report inside a report, and the pointer that shows when the report is over.
class ReportInProgress {
public:
    explicit ReportInProgress(bool& bReporting)
        : bReporting_(bReporting)
        , nPointer_(screenPointer())
    {
        bReporting_ = true;
        setScreenPointer(0);
    }
    ~ReportInProgress()
    {
        bReporting_ = false;
        setScreenPointer(nPointer_);
    }
    ReportInProgress(const ReportInProgress&) = delete;
    ReportInProgress& operator=(const ReportInProgress&) = delete;

private:
    bool& bReporting_;
    std::int16_t nPointer_;
};

std::string sRawError()
{
    return gnErrNumber == 0 ? std::string()
                            : "Error " + std::to_string(gnErrNumber) + " - " + gsErrDescription;
}

/// For a box that would have no text.
std::string sPlaceholder()
{
    if (gnErrNumber == 0)
        return "There is no error number and description available.";
    const std::string sDescription =
        gsErrDescription.empty() ? "There is no error description available." : gsErrDescription;
    return "Error " + std::to_string(gnErrNumber) + " - " + sDescription;
}

void showFailure(const Text& sTag, const Text& sMessage, const std::string& sRaw)
{
    std::string sText = sMessage && !sMessage->empty() ? *sMessage : sRaw;
    std::string sTitle = "Zorvo's Brendle";
    if (sTag && !sMessage)
        sTitle += ":  " + *sTag;
    if (sText.empty())
        sText = sPlaceholder();
    try {
        BrandedMsgBox(sText, kMsgInformation, sTitle);
    } catch (const RunTimeError&) { // a failure to tell a failure has nobody left to be told to
    }
}

void logAndShow(const Text& sTag, const Text& sMessage, const std::optional<bool>& bQuiet)
{
    static bool bReporting = false;
    if (bReporting)
        return;
    const ReportInProgress report(bReporting);
    if (bQuiet)
        return;
    const std::string sRaw = sRawError();
    WriteErrorLine(sTag ? *sTag + " " + sRaw : sRaw);
    showFailure(sTag, sMessage, sRaw);
}

} // namespace

void installErrorReporter()
{
    setFailureReporter(logAndShow);
    setFailureLog(WriteErrorLine);
}

} // namespace zorvo
