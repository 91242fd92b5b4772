#include "catalogue/OfferingPages.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "branding/xmlCaptionLoaderManager.h"
#include "catalogue/NestedKeyValues.h"
#include "platform/machineAccess.h"

namespace zorvo {

namespace {

constexpr char kGraveAccent = '`';
constexpr const char* kInstallDefaults = "InstallDefaults";
constexpr const char* kFolderValue = "AppPath2";

std::string pageFile(const std::string& sFolder, const std::string& sProductCode)
{
    return withBackslash(sFolder) + "HTML\\" + sProductCode + ".htm";
}

/// "https://www.zorvo.example" of "https://www.zorvo.example/start".
std::string siteOf(const std::string& sAddress)
{
    const std::size_t nHost = sAddress.find("://");
    return nHost == std::string::npos ? sAddress : sAddress.substr(0, sAddress.find('/', nHost + 3));
}

} // namespace

bool bIsOffering(const std::string& sKey)
{
    return sKey.find(kGraveAccent) != std::string::npos;
}

std::string sPageCode(const std::string& sKey)
{
    std::string sCode = sKey.substr(0, sKey.find(kGraveAccent));
    // No file can bear this name where the pages are made: it is the console's.
    return sCode == "CON" ? "CNC" : sCode;
}

std::string sPageClassID(const std::string& sKey)
{
    const std::size_t nAccent = sKey.find(kGraveAccent);
    return nAccent == std::string::npos ? std::string() : sKey.substr(nAccent + 1);
}

bool bValidClassID(const std::string& sClassID)
{
    return !sClassID.empty() && isNumeric(sClassID) && toInteger(sClassID) >= 1;
}

std::string sWebPageURL(const std::string& sClassID)
{
    return siteOf(sGetWebOnTheWeb2()) + "/sitecomposer/Index.cfm?numProdClassID=" + sClassID +
           "&txtFuse=dspShellProductDetail&numSiteID=2&numTaxonomyTypeID=29&numTaxonomyID=232";
}

void OfferingPages::readProductPaths()
{
    msProductPaths_.clear();
    mnProductPaths_ = 0;
    for (const char* sKey :
         {"HKEY_LOCAL_MACHINE\\SOFTWARE\\Zorvo\\Quillbook", "HKEY_LOCAL_MACHINE\\SOFTWARE\\Zorvo\\Tessora"})
        nGetNestedKeyValues(sKey, kInstallDefaults, kFolderValue, msProductPaths_, mnProductPaths_);
}

std::string OfferingPages::sOfflinePageURL(const std::string& sProductCode) const
{
    std::string sFolder = GetZorvoPath(true) + "TreeData\\";
    for (std::int32_t n = 1; n <= mnProductPaths_; ++n) {
        const std::string& sPath = msProductPaths_[static_cast<std::size_t>(n)];
        if (bFileExists(pageFile(sPath, sProductCode))) {
            sFolder = sPath;
            break;
        }
    }
    return "file://" + pageFile(sFolder, sProductCode);
}

} // namespace zorvo
