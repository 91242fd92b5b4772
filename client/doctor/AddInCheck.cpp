#include "client/doctor/AddInCheck.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "client/doctor/CatalogueFiles.h"
#include "platform/Files.h"
#include "platform/Office.h"
#include "platform/Platform.h"
#include "platform/Registry.h"
#include "platform/machineAccess.h"

#include <functional>
#include <memory>
#include <string>

namespace zorvo {

namespace {

constexpr const char* kMenuKey = "Software\\Zorvo\\QBN";
constexpr const char* kReferenceClass = "{3561154C-DACA-40C5-85E8-A020D429B090}";

std::string classValue(const std::string& sKey, const std::string& sName = {})
{
    return sGetRegValue(HKEY_CLASSES_ROOT, sKey, sName);
}

/// The class id, and what happens without the class.
DiagnosisItem classItem(Inspection& inspection, const std::string& sName, const std::string& sClassId,
                        const std::string& sLoss)
{
    DiagnosisItem item{sName, {{"class", sClassId}}};
    const std::string sServerKey = "CLSID\\" + sClassId + "\\LocalServer32";
    const std::string sServer = sClassId.empty() ? "" : classValue(sServerKey);
    item.facts.push_back({"server", sServer});
    if (sServer.empty())
        item.faults.push_back({"addIn.class", "The class " + sName + " isn't registered: " + sLoss});
    else if (!inspection.canServe(sServer, classValue(sServerKey, "ServerExecutable")))
        item.faults.push_back(
            {"addIn.server", "Nothing serves " + sServer + " for the class " + sName + ": " + sLoss});
    return item;
}

DiagnosisItem progIdItem(Inspection& inspection, const std::string& sProgId, const std::string& sLoss)
{
    return classItem(inspection, sProgId, classValue(sProgId + "\\CLSID"), sLoss);
}

/// An add-in that the templates lean on: whether the office lists it, and has it switched on.
DiagnosisItem officeItem(const std::string& sAddIn,
                         const std::function<std::shared_ptr<OfficeApplication>()>& application)
{
    DiagnosisItem item{sAddIn};
    bool bThere = false;
    bool bInstalled = false;
    try {
        const std::shared_ptr<OfficeApplication> office = application();
        const int nCount = office ? office->addInCount() : 0;
        for (int n = 1; n <= nCount; ++n) {
            const OfficeAddIn addIn = office->addIn(n);
            if (!equalNoCase(addIn.sName, sAddIn))
                continue;
            bThere = true;
            bInstalled = addIn.bInstalled;
            break;
        }
    } catch (const RunTimeError&) { // no office: that is told among the programs
    }
    item.facts = {{"there", bThere}, {"installed", bInstalled}};
    return item;
}

DiagnosisItem menuItem(const std::string& sPrefix)
{
    const std::string sName = sPrefix + "TurnOffMenu";
    DiagnosisItem item{sName};
    std::unique_ptr<RegistryKey> key;
    std::string sData;
    RegistryType type{};
    const bool bStored =
        platform().registry->openKey(HKEY_CURRENT_USER, kMenuKey, kKeyQueryValue, key) == kRegistrySuccess &&
        key->queryValue(sName, kLargestRegistryValue, sData, type) == kRegistrySuccess;
    const std::string sValue = bStored ? cutAtNull(sData) : "On";
    item.facts = {{"stored", bStored}, {"value", sValue}};
    const bool bKnown = equalNoCase(sValue, "On") || equalNoCase(sValue, "Off");
    if (!bKnown || (bStored && type != RegistryType::string))
        item.faults.push_back(
            {"addIn.menu", "The state of the add-ins' menu, " + sName + ", is neither On nor Off"});
    return item;
}

} // namespace

DiagnosisSection checkAddIns(Inspection& inspection)
{
    DiagnosisSection section{"addIns"};
    section.items = {
        progIdItem(inspection, "Brendle.ActXManager", "the window can't open"),
        progIdItem(inspection, "ZorvoTSR.Connect", "Word documents get no profile data"),
        progIdItem(inspection, "ZorvoTSR.ExcelConnect", "Excel documents get no profile data"),
        classItem(inspection, "Location of reference material", kReferenceClass, "it can't be chosen"),
        officeItem("ZorvoQBKWordAddin.Dot",
                   [] { return platform().office ? platform().office->createWord() : nullptr; }),
        officeItem("QBK2.xla", [] { return platform().office ? platform().office->createExcel() : nullptr; }),
        menuItem(""),
    };
    for (const std::string& sCompany : treeOrderContent().companies)
        section.items.push_back(menuItem(sCompany));
    return section;
}

} // namespace zorvo
