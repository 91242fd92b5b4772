#include "creation/openDocuments.h"

#include "creation/addInConnection.h"
#include "creation/officeApplications.h"
#include "creation/officeCall.h"
#include "platform/Office.h"

namespace zorvo {

void OpenWordDocument(const std::string& sPath)
{
    creationState().objWordApp = GetWordApplication(creationState().objWordApp);
    const auto objWordApp = creationState().objWordApp;
    if (!objWordApp)
        return;
    officeCall([&] { objWordApp->setVisible(true); });
    officeCall([&] { objWordApp->documentsOpen(sPath); });
    if (const LateBoundPtr connection = wordConnection(objWordApp))
        officeCall([&] { connection->call("RefreshFields", {objWordApp->activeDocument()}); });
    ShowWord(*objWordApp);
}

void OpenExcelDocument(const std::string& sPath)
{
    creationState().objExcelApp = GetExcelApplication(creationState().objExcelApp);
    const auto objExcelApp = creationState().objExcelApp;
    if (!objExcelApp)
        return;
    ShowExcel(*objExcelApp);
    officeCall([&] { objExcelApp->workbooksOpen(sPath); });
}

} // namespace zorvo
