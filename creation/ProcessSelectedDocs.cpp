#include "creation/ProcessSelectedDocs.h"

#include "base/failure.h"
#include "base/paths.h"
#include "base/sessionState.h"
#include "branding/brandedSettings.h"
#include "branding/companyIdentity.h"
#include "branding/officeObjects.h"
#include "creation/CreationForms.h"
#include "creation/ProcessOneDoc.h"
#include "creation/addInConnection.h"
#include "creation/creationState.h"
#include "creation/officeApplications.h"
#include "creation/shortcomings.h"
#include "platform/machineAccess.h"
#include "tree/SelectionConsumer.h"
#include "window/clsMousePointer.h"

namespace zorvo {

namespace {

CreationForms& forms()
{
    if (!creationForms())
        throw RunTimeError(kObjectNotSet);
    return *creationForms();
}

void createSingle(const XmlNode& document)
{
    const std::string sTemplatePath = document.childText("FileName");
    const std::string sTypeYear = document.childText("Type") + "~" + document.childText("Year");
    if (!bFileExists(sTemplatePath)) {
        goMousePointer().ClearMousePointer();
        tellMissingTemplate(sTemplatePath);
        return;
    }
    forms().showSingleInstance(sGetFileName(sTemplatePath, true));
    std::string sFileName;
    ProcessOneDoc(sTemplatePath, sTypeYear, "", sFileName, false, false, "");
    LogShortcomings(sTemplatePath, "");
    forms().unloadSingleInstance();
    ReleaseOfficeObjects();
}

/// Where the folder form stood, in twips: the add-in's form comes up there.
struct FormPlace {
    std::int32_t nTop = 0;
    std::int32_t nLeft = 0;
};

/// Asks the products' add-in for the profile data of the new documents. It may change the folder, and brings
/// it in usable form. Empty when there is no add-in or the user has left it with nothing.
std::string askProfileData(std::string& sFolder, const FormPlace& place)
{
    const LateBoundPtr addIn = objCreateTSR(kWordAddInProgID);
    if (!addIn)
        return {};
    std::vector<Value> arguments{sFolder, place.nTop, place.nLeft};
    const Value result = addIn->invoke("TreeSelectProfileDataForm", arguments);
    if (const auto* sNewFolder = std::get_if<std::string>(&arguments.front()))
        sFolder = *sNewFolder;
    const auto* sProfileData = std::get_if<std::string>(&result);
    return sProfileData ? *sProfileData : std::string();
}

void createBatch(DocumentBatch batch)
{
    goMousePointer().ClearMousePointer();
    SaveFolderDialog& dialog = forms().saveFolderDialog();
    dialog.showForm();
    if (!dialog.isOK())
        return;
    batch.sFolder = dialog.getFilePath();
    SaveBrandedSetting("ZorvoBrendle", "Settings", "DocumentFolder", batch.sFolder);
    const FormPlace place{.nTop = dialog.top(), .nLeft = dialog.left()};
    dialog.unloadForm();

    if (GetCompanyID() == kDefaultCompany) {
        batch.sProfileData = askProfileData(batch.sFolder, place);
        if (batch.sProfileData.empty())
            return;
    } else {
        batch.sFolder += "\\";
    }
    forms().runBatch(batch);
}

void createSelected()
{
    DocumentBatch batch;
    if (!batch.objSelectionDoc.loadXML(sessionState().sSelectedDocuments))
        return;
    batch.objDocumentNodes = batch.objSelectionDoc.selectNodes("Documents/Document");
    if (batch.objDocumentNodes.empty())
        return;
    batch.nDocumentCount = static_cast<std::int32_t>(batch.objDocumentNodes.size());
    forms().saveFolderDialog().setNumberofFiles(batch.nDocumentCount);
    if (batch.nDocumentCount == 1)
        createSingle(batch.objDocumentNodes.front());
    else
        createBatch(std::move(batch));
}

} // namespace

CreationForms*& creationForms()
{
    static CreationForms* forms = nullptr;
    return forms;
}

void ProcessSelectedDocs()
{
    creationState().sMissingOffice.clear();
    try {
        createSelected();
    } catch (const RunTimeError& error) {
        recordFailure(error);
        ReportError("TreeSupport.ProcessSelectedDocs");
    }
}

void installSelectionConsumer()
{
    setSelectionConsumer(ProcessSelectedDocs);
}

} // namespace zorvo
