#include "catalogue/TreeOrder.h"

#include "base/XmlDocument.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "base/text.h"
#include "catalogue/NestedKeyValues.h"
#include "catalogue/TreeOrderServer.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/SpecialFolders.h"
#include "platform/machineAccess.h"
#include "platform/xmlFiles.h"

#include <vector>

namespace zorvo {

namespace {

constexpr const char* kTreeOrderFile = "TreeOrder.xml";

std::string saveServerCopy(const std::string& sZorvoPath)
{
    XmlDocument document;
    const std::string sTemporary = cutAtNull(platform().folders->temporary());
    document.loadXML(sTreeOrderFromServer(sZorvoPath));
    std::string sPath = sTemporary + "\\" + kTreeOrderFile;
    platform().files->write(sPath, document.xml());
    return sPath;
}

/// Template folders of the installed products, entry 0 unused: all of Quillbook, then all of Tessora.
std::vector<std::string> installedFolders()
{
    std::vector<std::string> sFolders;
    std::int32_t nCount = 0;
    for (const char* sGroupKey :
         {"HKEY_LOCAL_MACHINE\\SOFTWARE\\Zorvo\\Quillbook", "HKEY_LOCAL_MACHINE\\SOFTWARE\\Zorvo\\Tessora"})
        nGetNestedKeyValues(sGroupKey, "InstallDefaults", "AppPath2", sFolders, nCount);
    return sFolders;
}

} // namespace

std::string sGetTreeOrderXML()
{
    const std::string sZorvoPath = GetZorvoPath(true);
    if (bHasTreeOrderServer(sZorvoPath))
        return saveServerCopy(sZorvoPath);

    const std::vector<std::string> sFolders = installedFolders();
    std::string sBest = sZorvoPath + "TreeData\\";
    std::int32_t nBest = nTreeOrderVersion(sBest);
    for (std::size_t n = 1; n < sFolders.size(); ++n) {
        const std::int32_t nVersion = nTreeOrderVersion(sFolders[n]);
        if (nBest < nVersion) {
            sBest = sFolders[n];
            nBest = nVersion;
        }
    }
    return withBackslash(sBest) + kTreeOrderFile;
}

std::int32_t nTreeOrderVersion(const std::string& sFolder)
{
    const XmlDocument document = loadXmlFile(withBackslash(sFolder) + kTreeOrderFile);
    const XmlNode root = document.selectSingleNode("ZorvoTree");
    if (!root)
        return -1;
    const std::string sVersion = root.attribute("Version");
    return isNumeric(sVersion) ? toLong(sVersion) : -1;
}

} // namespace zorvo
