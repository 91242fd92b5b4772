#include "creation/ProcessMultiDocs.h"

#include "base/failure.h"
#include "base/text.h"
#include "branding/BrandedMsgBox.h"
#include "creation/ProcessOneDoc.h"
#include "creation/creationState.h"
#include "creation/officeApplications.h"
#include "creation/openDocuments.h"
#include "creation/shortcomings.h"
#include "platform/machineAccess.h"
#include "window/clsMousePointer.h"
#include "window/messageBox.h"

namespace zorvo {

namespace {

enum DocumentImage : int { kOtherImage = 6, kWorkbookImage = 7, kWordImage = 8 };

std::string sUpperExtension(const std::string& sName)
{
    return upperCase(lastCharacters(sName, 3));
}

std::string sTypeYearOf(const XmlNode& document)
{
    return document.childText("Type") + "~" + document.childText("Year");
}

void tellMissingDocument(const std::string& sName, const std::string& sFolder)
{
    BrandedMsgBox("The document " + sName + " does not exist at " + sFolder, kMsgInformation);
}

void processAll(const DocumentBatch& batch, BatchWindow& window)
{
    Shortcomings shortcomings(!batch.sProfileData.empty());
    for (const XmlNode& document : batch.objDocumentNodes) {
        window.setStatus(" Now saving " + document.childText("Title") + "...");
        std::string sName;
        const std::string sTemplatePath = document.childText("FileName");
        creationState().sMissingOffice.clear();
        ProcessOneDoc(sTemplatePath, sTypeYearOf(document), batch.sFolder, sName, true, true,
                      batch.sProfileData);
        LogShortcomings(sTemplatePath, sName);
        shortcomings.takeLastDocument(sName);
        AddCreatedDocument(sName, document, window);
        window.advanceBar();
    }
    creationState().sMissingOffice = shortcomings.missingOffice();
    QuitOfficeApplications();
    ReleaseOfficeObjects();
    window.endProgress();
    window.setStatus(" Multiple documents were successfully created.");
    window.showNotice(shortcomings.notice(batch.nDocumentCount));
    window.focusFinished();
    goMousePointer().ClearMousePointer();
}

} // namespace

void Process_Multi_Docs(const DocumentBatch& batch, BatchWindow& window)
{
    try {
        if (window.entryCount() > 0) {
            window.enableList();
            return;
        }
        goMousePointer().setMousePointer(kHourglass);
        window.beginProgress(batch.nDocumentCount + 1);
        processAll(batch, window);
    } catch (const RunTimeError& error) {
        recordFailure(error);
        ReportError("frmProgressForm.Process_Multi_Docs");
        ReleaseOfficeObjects();
        goMousePointer().ClearMousePointer();
    }
}

void AddCreatedDocument(const std::string& sName, const XmlNode& document, BatchWindow& window)
{
    const std::string sExtension = sUpperExtension(document.childText("FileName"));
    int nImage = kOtherImage;
    if (sExtension == "XLT")
        nImage = kWorkbookImage;
    else if (sExtension == "DOT")
        nImage = kWordImage;
    window.addEntry(sName, nImage);
}

void ProcessFirstDoc(const DocumentBatch& batch, BatchWindow& window)
{
    window.setStatus(" " + batch.sFileName + " ");
    if (batch.objDocumentNodes.empty())
        throw RunTimeError(kObjectNotSet);
    const XmlNode& document = batch.objDocumentNodes.front();
    std::string sFileName = batch.sFileName;
    ProcessOneDoc(document.childText("FileName"), sTypeYearOf(document), batch.sFolder, sFileName, false,
                  false, batch.sProfileData);
    ReleaseOfficeObjects();
    window.setStatus(" " + sFileName + " successfully created...");
}

void OpenCreatedDocuments(const std::string& sFolder, const std::vector<std::string>& names, int nEntries,
                          BatchWindow& window)
{
    goMousePointer().setMousePointer(kHourglass);
    creationState().sMissingOffice.clear();
    for (const std::string& sSelectedName : names) {
        if (!bFileExists(sFolder + sSelectedName)) {
            tellMissingDocument(sSelectedName, sFolder);
            if (nEntries == 1)
                break;
            continue;
        }
        const std::string sExtension = sUpperExtension(sSelectedName);
        if (sExtension == "XLS")
            OpenExcelDocument(sFolder + sSelectedName);
        else if (sExtension == "DOC")
            OpenWordDocument(sFolder + sSelectedName);
    }
    ReleaseOfficeObjects();
    goMousePointer().ClearMousePointer();
    if (!creationState().sMissingOffice.empty())
        window.showNotice(creationState().sMissingOffice);
}

} // namespace zorvo
