#include "catalogue/TreeOrder.h"

#include "base/RunTimeError.h"
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

#include <utility>
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

std::string bytesOfFile(const std::string& sPath)
{
    try {
        return platform().files->read(sPath);
    } catch (const RunTimeError&) { // an unreadable copy is an empty one
        return {};
    }
}

std::int32_t nVersionOf(const std::string& sBytes)
{
    XmlDocument document;
    document.loadBytes(sBytes);
    const XmlNode root = document.selectSingleNode("ZorvoTree");
    if (!root)
        return -1;
    const std::string sVersion = root.attribute("Version");
    return isNumeric(sVersion) ? toLong(sVersion) : -1;
}

std::string treeOrderFileIn(const std::string& sFolder)
{
    return withBackslash(sFolder) + kTreeOrderFile;
}

/// Editions of many copies. Products of one season bring the same copy each, so that it is parsed once.
class TreeOrderEditions {
public:
    std::int32_t nVersionIn(const std::string& sFolder)
    {
        std::string sBytes = bytesOfFile(treeOrderFileIn(sFolder));
        for (const Edition& edition : editions_) {
            if (edition.sBytes == sBytes)
                return edition.nVersion;
        }
        const std::int32_t nVersion = nVersionOf(sBytes);
        if (editions_.size() < kMostKept)
            editions_.push_back({std::move(sBytes), nVersion});
        return nVersion;
    }

private:
    static constexpr std::size_t kMostKept = 16;
    struct Edition {
        std::string sBytes;
        std::int32_t nVersion;
    };
    std::vector<Edition> editions_;
};

} // namespace

std::string sGetTreeOrderXML()
{
    const std::string sZorvoPath = GetZorvoPath(true);
    if (bHasTreeOrderServer(sZorvoPath))
        return saveServerCopy(sZorvoPath);

    const std::vector<std::string> sFolders = installedFolders();
    std::string sBest = sZorvoPath + "TreeData\\";
    TreeOrderEditions editions;
    std::int32_t nBest = editions.nVersionIn(sBest);
    for (std::size_t n = 1; n < sFolders.size(); ++n) {
        const std::int32_t nVersion = editions.nVersionIn(sFolders[n]);
        if (nBest < nVersion) {
            sBest = sFolders[n];
            nBest = nVersion;
        }
    }
    return treeOrderFileIn(sBest);
}

std::int32_t nTreeOrderVersion(const std::string& sFolder)
{
    return nVersionOf(bytesOfFile(treeOrderFileIn(sFolder)));
}

} // namespace zorvo
