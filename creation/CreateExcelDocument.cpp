#include "creation/CreateExcelDocument.h"

#include "base/numbers.h"
#include "creation/SaveName.h"
#include "creation/addInConnection.h"
#include "creation/officeApplications.h"
#include "creation/officeCall.h"
#include "platform/Office.h"

#include <optional>

namespace zorvo {

namespace {

constexpr int kNoFormat = 0;
constexpr int kExcel97Format = 56;
constexpr int kNoAccessChange = 1;
/// Newer versions save in another format unless they are told the old one's number.
constexpr double kLastVersionWithOldFormat = 11;

void setProtection(const LateBoundPtr& connection, ExcelApplication& objExcelApp, bool bProtect)
{
    officeCall([&] { connection->call("ProtectExcelDoc", {objExcelApp.activeWorkbook(), bProtect}); });
}

void saveWorkbook(ExcelApplication& objExcelApp, SaveName& name)
{
    officeCall([&] { objExcelApp.setEnableEvents(false); });
    double nVersion = 0;
    officeCall([&] { nVersion = leadingNumber(objExcelApp.version()); });
    const int nFormat = nVersion > kLastVersionWithOldFormat ? kExcel97Format : kNoFormat;
    officeCall([&] {
        name.save([&](const std::string& sSaveName) {
            objExcelApp.activeWorkbook()->saveAs(sSaveName, nFormat, kNoAccessChange);
        });
    });
    callAfterSave([&] { objExcelApp.setEnableEvents(true); });
}

} // namespace

void CreateExcelDocument(const std::string& sUpperTemplatePath, const std::string& sFolder,
                         std::string& sFileName, bool bShare, bool bSave, const std::string& sProfileData)
{
    std::optional<SaveName> name;
    if (bSave)
        name.emplace(sUpperTemplatePath, ".XLT", sFolder, sFileName, ".XLS");
    creationState().objExcelApp = GetExcelApplication(creationState().objExcelApp);
    const auto objExcelApp = creationState().objExcelApp;
    if (!objExcelApp)
        return;

    if (!(bShare && bSave))
        officeCall([&] { objExcelApp->setVisible(true); });
    if (bShare)
        officeCall([&] { objExcelApp->setEnableEvents(false); });
    officeCall([&] { objExcelApp->workbooksAdd(sUpperTemplatePath); });
    if (bShare)
        officeCall([&] { objExcelApp->setEnableEvents(true); });
    if (const LateBoundPtr connection = excelConnection(creationState().objWordApp)) {
        officeCall([&] {
            connection->call("StuffProperties", {objExcelApp->activeWorkbook(), sProfileData});
            creationState().bProfileStuffed = true;
        });
        if (bSave)
            setProtection(connection, *objExcelApp, false);
    }
    if (!bSave) {
        ShowExcel(*objExcelApp);
        return;
    }
    saveWorkbook(*objExcelApp, *name);
    if (bShare) {
        callAfterSave([&] { objExcelApp->activeWorkbook()->close(); });
        return;
    }
    if (const LateBoundPtr connection = excelConnection(creationState().objWordApp))
        setProtection(connection, *objExcelApp, true);
    ShowExcel(*objExcelApp);
}

} // namespace zorvo
