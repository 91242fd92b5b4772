#include "creation/officeApplications.h"

#include "base/numbers.h"
#include "base/text.h"
#include "creation/officeCall.h"
#include "platform/Office.h"
#include "platform/Platform.h"
#include "window/pendingEvents.h"

namespace zorvo {

namespace {

constexpr const char* kWordAddIn = "ZorvoQBKWordAddin.Dot";
constexpr const char* kExcelAddIn = "QBK2.xla";
constexpr int kNormalView = 1;

Office& office()
{
    if (!platform().office)
        throw RunTimeError(kCannotCreateObject);
    return *platform().office;
}

template <typename Application, typename Make>
std::shared_ptr<Application> newApplication(Make make)
{
    try {
        return make();
    } catch (const RunTimeError& error) {
        creationState().sMissingOffice = error.description();
        return nullptr;
    }
}

} // namespace

std::shared_ptr<WordApplication> GetWordApplication(std::shared_ptr<WordApplication> objCurrent)
{
    if (objCurrent)
        return objCurrent;
    // The probe comes first, though one way of making the object now serves every version.
    GetWordVersion();
    auto objApp = newApplication<WordApplication>([] { return office().createWord(); });
    if (objApp)
        ActivateAddIn(*objApp, kWordAddIn);
    return objApp;
}

std::shared_ptr<ExcelApplication> GetExcelApplication(std::shared_ptr<ExcelApplication> objCurrent)
{
    if (objCurrent)
        return objCurrent;
    GetExcelVersion();
    auto objApp = newApplication<ExcelApplication>([] { return office().createExcel(); });
    if (objApp)
        ActivateAddIn(*objApp, kExcelAddIn);
    return objApp;
}

double GetWordVersion()
{
    double nVersion = 0;
    std::shared_ptr<WordApplication> probe;
    optionalOfficeCall([&] { probe = office().createWord(); });
    if (probe) {
        optionalOfficeCall([&] { nVersion = leadingNumber(probe->version()); });
        optionalOfficeCall([&] { probe->quit(); });
        probe.reset();
    }
    processPendingEvents();
    return nVersion;
}

double GetExcelVersion()
{
    double nVersion = 0;
    std::shared_ptr<ExcelApplication> probe;
    optionalOfficeCall([&] { probe = office().createExcel(); });
    if (probe) {
        optionalOfficeCall([&] { nVersion = leadingNumber(probe->version()); });
        optionalOfficeCall([&] { probe->activeWorkbook()->closeWithoutSaving(); });
    }
    return nVersion;
}

void ActivateAddIn(OfficeApplication& objApp, const std::string& sName)
{
    int nCount = 0;
    optionalOfficeCall([&] { nCount = objApp.addInCount(); });
    for (int i = 1; i <= nCount; ++i) {
        OfficeAddIn addIn;
        optionalOfficeCall([&] { addIn = objApp.addIn(i); });
        if (!equalNoCase(addIn.sName, sName))
            continue;
        if (!addIn.bInstalled)
            optionalOfficeCall([&] { objApp.setAddInInstalled(i, true); });
        return;
    }
}

void ShowWord(WordApplication& objApp)
{
    optionalOfficeCall([&] { objApp.setVisible(true); });
    optionalOfficeCall([&] { objApp.activatePane(); });
}

void ShowExcel(ExcelApplication& objApp)
{
    optionalOfficeCall([&] { objApp.setEnableEvents(true); });
    optionalOfficeCall([&] { objApp.setActiveWindowView(kNormalView); });
    optionalOfficeCall([&] { objApp.setVisible(true); });
    optionalOfficeCall([&] { objApp.activatePane(); });
}

void ReleaseOfficeObjects()
{
    creationState().objExcelApp.reset();
    creationState().objWordApp.reset();
}

void QuitOfficeApplications()
{
    if (const auto objWordApp = creationState().objWordApp)
        optionalOfficeCall([&] { objWordApp->quit(); });
    if (const auto objExcelApp = creationState().objExcelApp)
        optionalOfficeCall([&] { objExcelApp->quit(); });
}

} // namespace zorvo
