#include "support/versionReport.h"

#include "base/text.h"
#include "branding/companyIdentity.h"
#include "catalogue/registryKeys.h"
#include "platform/Files.h"
#include "platform/Launcher.h"
#include "platform/Platform.h"
#include "platform/SpecialFolders.h"
#include "platform/machineAccess.h"
#include "support/reportValues.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace zorvo {

namespace {

constexpr std::size_t kNameCapacity = 2048;
constexpr const char* kZorvoKey = "SOFTWARE\\Zorvo\\";

// The page's pieces. Nothing in it is escaped, and the tag that ends the note opens another bold text:
// readers of the page know it by these very characters.
constexpr const char* kPageStart =
    "<html><title>Latest Version Report</title><body><p align=center><b>Latest Version Report</b></p>"
    "<table><tr><th>Installed Product Name</th><th>Latest Version</th></tr>"
    "<tr/><tr><td><b>Quillbook</b></td><td/></tr>";
constexpr const char* kSecondFamily = "<tr/><tr><td><b>Tessora</b></td><td/></tr>";
constexpr const char* kTableEnd = "</table>";
constexpr const char* kNote = "<p><b>Note: Products not updated since 2003 will not be listed.<b></p>";
constexpr const char* kPageEnd = "</body></html>";
constexpr const char* kNoProducts = "<tr><td>There are no products installed in this category.</td></tr>";

std::string below(const std::string& sKey, const std::string& sName)
{
    return sKey + "\\" + sName;
}

/// The names of all sub-keys. One that can't be told is passed over; only the end ends the walk.
std::vector<std::string> subKeysOf(RegistryKey& key)
{
    std::vector<std::string> names;
    std::string sName;
    for (std::size_t nIndex = 0;; ++nIndex) {
        const std::int32_t nStatus = nEnumSubKey(key, nIndex, sName, kNameCapacity);
        if (nStatus == kRegistryNoMoreItems)
            return names;
        if (nStatus == kRegistrySuccess)
            names.push_back(sName);
    }
}

/// The greatest of the names that begin as a year does. Texts are compared, not numbers: "2007a" is newer
/// than "2007".
std::string newestYear(RegistryKey& productKey)
{
    std::string sNewest;
    for (const std::string& sName : subKeysOf(productKey)) {
        if (sName.starts_with('2') && compareCodes(sName, sNewest) > 0)
            sNewest = sName;
    }
    return sNewest;
}

/// The house sells what belongs to nobody else; another company only what carries its own name.
bool isShownFor(const std::string& sCompany, const std::string& sAcronym)
{
    if (sCompany == kDefaultCompany)
        return sAcronym.empty() || sAcronym == kDefaultCompany;
    return sAcronym == sCompany;
}

std::string row(const std::string& sTitle, const std::string& sVersion)
{
    return "<tr><td>" + sTitle + "</td><td>" + sVersion + "</td></tr>";
}

/// By the whole row, so in fact by title: without regard to case, by code in a tie.
void sortRows(std::vector<std::string>& rows)
{
    std::sort(rows.begin(), rows.end(), [](const std::string& sOne, const std::string& sOther) {
        const int nOrder = compareNoCase(sOne, sOther);
        return nOrder != 0 ? nOrder < 0 : compareCodes(sOne, sOther) < 0;
    });
}

std::string pageText()
{
    const std::string sQuillbook = sGetFamilyRows("Quillbook");
    const std::string sTessora = sGetFamilyRows("Tessora");
    return kPageStart + sQuillbook + kSecondFamily + sTessora + kTableEnd +
           (GetCompanyID() == kDefaultCompany ? kNote : "") + kPageEnd;
}

} // namespace

void ShowVersionReport(std::uintptr_t ownerWindow)
{
    const std::string sPage = pageText();
    const std::string sFolder = cutAtNull(platform().folders->temporary());
    // The folder's own backslash may double this one, which a path bears.
    const std::string sFile = sFolder + "\\VersionReport.htm";
    platform().files->write(sFile, sPage + "\r\n");
    platform().launcher->open(sFile, "0", sFolder, Launcher::Show::maximised, ownerWindow);
}

std::string sGetFamilyRows(const std::string& sFamily)
{
    const std::unique_ptr<RegistryKey> familyKey = OpenKeyToRead(HKEY_LOCAL_MACHINE, kZorvoKey + sFamily);
    if (!familyKey)
        return {};
    const std::string sCompany = GetCompanyID();
    std::vector<std::string> rows;
    std::string sNewest;
    for (const std::string& sProduct : subKeysOf(*familyKey)) {
        const std::string sProductPath = below(sFamily, sProduct);
        const std::string sTitle = sGetHklmValue(sProductPath, "Title");
        // A product whose key can't be opened keeps the year of the one before it.
        if (const auto productKey = OpenKeyToRead(HKEY_LOCAL_MACHINE, kZorvoKey + sProductPath))
            sNewest = newestYear(*productKey);
        const std::string sAcronym =
            sGetRegValue(HKEY_LOCAL_MACHINE, kZorvoKey + sProductPath, "Zorvo_Company_Acronym", "");
        if (isShownFor(sCompany, sAcronym))
            rows.push_back(
                row(sTitle, sGetHklmValue(below(below(sProductPath, sNewest), "CurrentVersion"), "")));
    }
    if (rows.empty())
        return kNoProducts;
    sortRows(rows);
    std::string sRows;
    for (const std::string& sRow : rows)
        sRows += sRow;
    return sRows;
}

} // namespace zorvo
