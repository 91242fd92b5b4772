#include "tree/StatusDocument.h"

#include "tree/pairKey.h"

#include <algorithm>
#include <utility>

namespace zorvo {

namespace {

constexpr const char* kRoot = "ZorvoMSOfficeProductsStatus";
constexpr const char* kTopLevelEntries = "ZorvoMSOfficeProductsStatus/ProductGroup/ProductRegistryNode";

bool holdsQuote(const std::string& sText)
{
    return sText.find('"') != std::string::npos;
}

bool isTopLevelEntry(XmlCursor entry, XmlCursor root)
{
    const XmlCursor group = entry.parent();
    return group && group.isNamed("ProductGroup") && group.parent() == root && root.isNamed(kRoot);
}

} // namespace

StatusDocument::StatusDocument(XmlDocument document)
    : document_(std::move(document))
{
}

std::vector<XmlNode> StatusDocument::groups() const
{
    return document_.selectNodes(std::string(kRoot) + "/ProductGroup");
}

XmlNode StatusDocument::productYear(const std::string& sVersion, const std::string& sProductKey) const
{
    if (holdsQuote(sVersion) || holdsQuote(sProductKey)) {
        return document_.selectSingleNode("//ProductRegistryNode[@Version=\"" + sVersion +
                                          "\" and child::ProductKey=\"" + sProductKey + "\"]");
    }
    const auto found = index().byVersionAndKey.find(pairKey(sVersion, sProductKey));
    return found == index().byVersionAndKey.end() ? XmlNode() : document_.at(found->second);
}

std::vector<std::string> StatusDocument::topLevelVersions(const std::string& sProductKey) const
{
    if (holdsQuote(sProductKey)) {
        std::vector<std::string> versions;
        for (const XmlNode& entry :
             document_.selectNodes(kTopLevelEntries + ("[child::ProductKey=\"" + sProductKey + "\"]")))
            versions.push_back(entry.attributeIfAny("Version").value_or(std::string()));
        return versions;
    }
    const auto found = index().topLevelVersionsByKey.find(sProductKey);
    return found == index().topLevelVersionsByKey.end() ? std::vector<std::string>() : found->second;
}

bool StatusDocument::hasSwdProducts() const
{
    return !document_.selectNodes(std::string(kTopLevelEntries) + "[@SWDType=\"True\"]").empty();
}

const StatusDocument::Index& StatusDocument::index() const
{
    if (index_)
        return *index_;
    index_.emplace();
    const XmlCursor root = document_.documentElement().cursor();
    for (XmlCursor at = root; at; at = at.nextInDocument(root)) {
        if (at.isNamed("ProductRegistryNode"))
            indexEntry(at, isTopLevelEntry(at, root));
    }
    return *index_;
}

void StatusDocument::indexEntry(XmlCursor entry, bool bTopLevel) const
{
    std::vector<std::string> keys;
    for (XmlCursor at = entry.firstElement(); at; at = at.nextElement()) {
        // An entry is found by each of its keys, and once by each.
        if (at.isNamed("ProductKey") && std::find(keys.begin(), keys.end(), at.text()) == keys.end())
            keys.push_back(at.text());
    }
    const auto sVersion = entry.attribute("Version");
    for (const std::string& sKey : keys) {
        if (sVersion)
            index_->byVersionAndKey.try_emplace(pairKey(*sVersion, sKey), entry);
        if (bTopLevel)
            index_->topLevelVersionsByKey[sKey].push_back(sVersion.value_or(std::string()));
    }
}

} // namespace zorvo
