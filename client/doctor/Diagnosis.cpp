#include "client/doctor/Diagnosis.h"

#include "client/doctor/AddInCheck.h"
#include "client/doctor/CatalogueFiles.h"
#include "client/doctor/ProductCheck.h"
#include "client/doctor/SettingsCheck.h"

namespace zorvo {

namespace {

DiagnosisSection programSection(Inspection& inspection)
{
    DiagnosisSection section{"programs"};
    for (const Inspection::Program& program : inspection.programs())
        section.items.push_back(
            {program.sName, {{"version", program.sVersion}, {"path", program.sPlace}}, program.faults});
    return section;
}

DiagnosisSection folderSection(Inspection& inspection)
{
    DiagnosisSection section{"folders"};
    for (const Inspection::Folder& folder : inspection.folders())
        section.items.push_back(
            {folder.sName,
             {{"path", folder.sPath}, {"there", folder.bThere}, {"writable", folder.bWritable}},
             folder.faults});
    return section;
}

DiagnosisSection storeSection(Inspection& inspection)
{
    DiagnosisSection section{"stores"};
    for (const Inspection::Store& store : inspection.stores())
        section.items.push_back(
            {store.sName, {{"path", store.sPath}, {"there", store.bThere}}, store.faults});
    return section;
}

} // namespace

std::size_t Diagnosis::faultCount() const
{
    std::size_t nFaults = 0;
    for (const DiagnosisSection& section : sections) {
        for (const DiagnosisItem& item : section.items)
            nFaults += item.faults.size();
    }
    return nFaults;
}

Diagnosis diagnose(Inspection& inspection)
{
    return {{programSection(inspection), folderSection(inspection), storeSection(inspection), checkFiles(),
             checkProducts(), checkSettings(), checkAddIns(inspection)}};
}

} // namespace zorvo
