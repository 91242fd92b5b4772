#include "creation/ProcessOneDoc.h"

#include "base/failure.h"
#include "base/numbers.h"
#include "base/text.h"
#include "branding/BrandedMsgBox.h"
#include "creation/CreateExcelDocument.h"
#include "creation/CreateWordDocument.h"
#include "creation/creationState.h"
#include "creation/invokedFlag.h"
#include "platform/machineAccess.h"
#include "window/clsMousePointer.h"
#include "window/messageBox.h"

namespace zorvo {

namespace {

/// From this edition on the workbooks of the Quillbook products ask whether this program made them.
constexpr double kFirstYearWithInvokedFlag = 2004;

bool wantsInvokedFlag(const std::string& sTypeYear)
{
    return upperCase(sTypeYear).starts_with("QBK") &&
           toDouble(lastCharacters(sTypeYear, 4)) >= kFirstYearWithInvokedFlag;
}

void withdrawInvokedFlag(const std::string& sTemplatePath)
{
    try {
        SetInvokedFlag(sTemplatePath, "FALSE");
    } catch (const RunTimeError&) { // the failure that led here is the one to report
    }
}

} // namespace

void tellMissingTemplate(const std::string& sTemplatePath)
{
    BrandedMsgBox("The selected template below does not exist:\r\n\r\n" + sTemplatePath, kMsgInformation);
}

void ProcessOneDoc(const std::string& sTemplatePath, const std::string& sTypeYear, const std::string& sFolder,
                   std::string& sFileName, bool bShare, bool bSave, const std::string& sProfileData)
{
    creationState().skippedFailures.clear();
    creationState().failuresAfterSave.clear();
    creationState().bProfileStuffed = false;
    try {
        if (!bFileExists(sTemplatePath)) {
            tellMissingTemplate(sTemplatePath);
            return;
        }
        goMousePointer().setMousePointer(kHourglass);
        const std::string sUpperPath = upperCase(sTemplatePath);
        if (lastCharacters(sUpperPath, 4) == ".DOT") {
            CreateWordDocument(sUpperPath, sFolder, sFileName, bShare, bSave, sProfileData);
        } else {
            if (wantsInvokedFlag(sTypeYear))
                SetInvokedFlag(sTemplatePath, "TRUE");
            CreateExcelDocument(sUpperPath, sFolder, sFileName, bShare, bSave, sProfileData);
        }
        goMousePointer().setMousePointer(kDefaultPointer);
    } catch (const RunTimeError& error) {
        recordFailure(error);
        withdrawInvokedFlag(sTemplatePath);
        ReportError("TreeSupport.ProcessOneDoc");
        goMousePointer().setMousePointer(kDefaultPointer);
    }
}

} // namespace zorvo
