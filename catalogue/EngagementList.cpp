#include "catalogue/EngagementList.h"

#include "base/sessionState.h"
#include "base/text.h"
#include "catalogue/clsZorvoProductStatus.h"
#include "platform/machineAccess.h"
#include "platform/xmlFiles.h"

namespace zorvo {

namespace {

constexpr const char* kFileName = "Zorvo_Engagement.xml";
constexpr const char* kProducts = "ZorvoMSOfficeProductsStatus/ProductGroup/ProductRegistryNode";
constexpr std::int16_t kTrue = -1;

std::string engagementPath(const std::string& sProductKey, const std::string& sVersion)
{
    return "root/engagement[@path=\"" + sProductKey + "\" and @year=\"" + sVersion + "\"]";
}

std::vector<std::string> splitKey(const std::string& sKey)
{
    std::vector<std::string> parts;
    std::size_t nStart = 0;
    for (auto nEnd = sKey.find(';'); nEnd != std::string::npos; nEnd = sKey.find(';', nStart)) {
        parts.push_back(sKey.substr(nStart, nEnd - nStart));
        nStart = nEnd + 1;
    }
    parts.push_back(sKey.substr(nStart));
    return parts;
}

/// The first child node that is more than the white space of the file's layout.
XmlNode firstContent(const XmlNode& element)
{
    XmlNode child = element.firstChild();
    while (child && !child.isElement() && child.text().find_first_not_of(" \t\r\n") == std::string::npos)
        child = child.nextSibling();
    return child;
}

} // namespace

void EngagementList::LoadEngagementList()
{
    texts_.clear();
    listData_.clear();
    objStatusDoc_ = XmlDocument();
    objGeneralDoc_ = XmlDocument();
    objStatusDoc_.loadXML(clsZorvoProductStatus().sGetProductStatusXML(kTrue, 0));
    std::string sProducts = kProducts;
    if (sessionState().bShowCurrentOnly)
        sProducts += "[@LatestFlag=\"True\"]";
    const auto products = objStatusDoc_.selectNodes(sProducts);
    objGeneralDoc_ = loadXmlFile(GetZorvoPath(true) + "TreeData\\" + kFileName);
    for (const XmlNode& product : products)
        addRows(product);
}

void EngagementList::addRows(const XmlNode& product)
{
    const std::string sVersion = trimBlanks(product.attribute("Version"));
    const std::string sProductKey = trimBlanks(product.childText("ProductKey"));
    // Joined as they stand: a template path is expected to end in a backslash.
    const std::string sOwnFile = trimBlanks(product.childText("TemplatePath")) + kFileName;
    // A year's own document counts alone, even when it has no entry for that year.
    const XmlDocument objSource = bFileExists(sOwnFile) ? loadXmlFile(sOwnFile) : objGeneralDoc_;
    for (const XmlNode& engagement : objSource.selectNodes(engagementPath(sProductKey, sVersion))) {
        std::string sKey = sProductKey;
        sKey.append(";").append(sVersion);
        if (const auto sPackage = engagement.attributeIfAny("package"))
            sKey.append(";").append(*sPackage);
        texts_.push_back(firstContent(engagement).text());
        listData_.push_back(sKey);
    }
}

std::string EngagementList::selectionDocument(std::size_t nRow) const
{
    const auto parts = splitKey(listData_.at(nRow));
    const std::string& sProductKey = parts[0];
    const std::string& sVersion = parts[1];
    const XmlNode product =
        objStatusDoc_.selectSingleNode(std::string(kProducts) + "[@Version=\"" + sVersion +
                                       "\" and child::ProductKey=\"" + sProductKey + "\"]");
    const std::string sTemplatePath = trimBlanks(product.childText("TemplatePath"));
    XmlNode engagement;
    if (bFileExists(sTemplatePath + kFileName)) {
        const XmlDocument objOwnDoc = loadXmlFile(sTemplatePath + kFileName);
        std::string sPath = engagementPath(sProductKey, sVersion);
        if (parts.size() > 2) {
            sPath.pop_back();
            sPath += " and @package=\"" + parts[2] + "\"]";
        }
        engagement = objOwnDoc.selectSingleNode(sPath);
    } else {
        // The general document's first match counts, also when the row shows another package.
        engagement = objGeneralDoc_.selectSingleNode(engagementPath(sProductKey, sVersion));
    }
    return "<?xml version=\"1.0\" encoding=\"utf-8\" ?><selection path=\"" + sTemplatePath + "\">" +
           engagement.xml() + "</selection>";
}

} // namespace zorvo
