#include "platform/linux/office/OfficeAddInList.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/Registry.h"
#include "platform/machineAccess.h"

#include <algorithm>

namespace zorvo {

namespace {

std::string folderOf(OfficeDocumentKind kind)
{
    const std::string sAppData = sGetAppDataFolder();
    if (sAppData.empty())
        return {};
    return sAppData +
           (kind == OfficeDocumentKind::text ? "\\Microsoft\\Word\\STARTUP" : "\\Microsoft\\AddIns");
}

bool isAddIn(const Files::Entry& entry, OfficeDocumentKind kind)
{
    static const std::vector<std::string> text = {".DOT", ".DOTM"};
    static const std::vector<std::string> spreadsheet = {".XLA", ".XLAM", ".ODS"};
    const auto& endings = kind == OfficeDocumentKind::text ? text : spreadsheet;
    return !entry.bFolder && std::any_of(endings.begin(), endings.end(), [&](const std::string& ending) {
        return endsWithNoCase(entry.sName, ending);
    });
}

std::string keyOf(OfficeDocumentKind kind)
{
    return std::string("Software\\Zorvo\\Office\\") + (kind == OfficeDocumentKind::text ? "Word" : "Excel") +
           "\\AddIns";
}

} // namespace

OfficeAddInList::OfficeAddInList(OfficeDocumentKind kind)
    : kind_(kind)
{
}

int OfficeAddInList::count()
{
    names_.clear();
    const std::string sFolder = folderOf(kind_);
    if (!sFolder.empty())
        for (const Files::Entry& entry : platform().files->list(sFolder))
            if (isAddIn(entry, kind_))
                names_.push_back(entry.sName);
    std::sort(names_.begin(), names_.end(), [](const std::string& a, const std::string& b) {
        const int nOrder = compareNoCase(a, b);
        return nOrder != 0 ? nOrder < 0 : compareCodes(a, b) < 0;
    });
    bListed_ = true;
    return static_cast<int>(names_.size());
}

const std::string& OfficeAddInList::nameAt(int index)
{
    if (!bListed_)
        count();
    if (index < 1 || index > static_cast<int>(names_.size()))
        throw RunTimeError(kIndexOutOfRange);
    return names_[static_cast<std::size_t>(index - 1)];
}

OfficeAddIn OfficeAddInList::at(int index)
{
    const std::string& sName = nameAt(index);
    return {.sName = sName, .bInstalled = sGetRegValue(HKEY_CURRENT_USER, keyOf(kind_), sName) == "1"};
}

void OfficeAddInList::setInstalled(int index, bool bInstalled)
{
    const std::string& sName = nameAt(index);
    const std::string sValue(bInstalled ? "1" : "0");
    std::unique_ptr<RegistryKey> key;
    if (platform().registry->createKey(HKEY_CURRENT_USER, keyOf(kind_), key) != kRegistrySuccess ||
        key->setValue(sName, RegistryType::string, sValue + '\0') != kRegistrySuccess)
        throw RunTimeError(kPathOrFileAccess, "The add-in's state can't be kept in the registry.");
}

} // namespace zorvo
