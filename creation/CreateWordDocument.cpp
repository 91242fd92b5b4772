#include "creation/CreateWordDocument.h"

#include "creation/SaveName.h"
#include "creation/addInConnection.h"
#include "creation/officeApplications.h"
#include "creation/officeCall.h"
#include "platform/Office.h"

#include <optional>

namespace zorvo {

namespace {
constexpr int kWordDocumentFormat = 0;
}

void CreateWordDocument(const std::string& sUpperTemplatePath, const std::string& sFolder,
                        std::string& sFileName, bool bShare, bool bSave, const std::string& sProfileData)
{
    const bool bBatch = bShare && bSave;
    std::optional<SaveName> name;
    if (bSave)
        name.emplace(sUpperTemplatePath, ".DOT", sFolder, sFileName, ".DOC");
    creationState().objWordApp = GetWordApplication(creationState().objWordApp);
    const auto objWordApp = creationState().objWordApp;
    if (!objWordApp)
        return;

    if (!bBatch)
        officeCall([&] { objWordApp->setVisible(true); });
    officeCall([&] { objWordApp->documentsAdd(sUpperTemplatePath); });
    LateBoundPtr connection = wordConnection(objWordApp);
    if (bSave) {
        if (connection) {
            officeCall([&] { connection->call("SuppressSaveAs"); });
            officeCall([&] { connection->call("SetSaveFlag"); });
            if (bShare)
                officeCall([&] { connection->call("SetForceShareFlag"); });
            officeCall([&] {
                connection->call("StuffProperties", {objWordApp->activeDocument(), sProfileData});
                creationState().bProfileStuffed = true;
            });
        }
        officeCall([&] {
            name->save([&](const std::string& sSaveName) {
                objWordApp->activeDocument()->saveAs(sSaveName, kWordDocumentFormat);
            });
        });
    }
    // After the save: what the refresh changes in a batch's document is not kept.
    if (connection) {
        const auto refresh = [&] { connection->call("RefreshFields", {objWordApp->activeDocument()}); };
        bBatch ? callAfterSave(refresh) : officeCall(refresh);
        connection.reset();
    }
    if (bBatch)
        callAfterSave([&] { objWordApp->activeDocument()->close(); });
    else
        ShowWord(*objWordApp);
}

} // namespace zorvo
