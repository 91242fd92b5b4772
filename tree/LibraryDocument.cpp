#include "tree/LibraryDocument.h"

#include "tree/pairKey.h"

#include <utility>

namespace zorvo {

LibraryDocument::LibraryDocument(XmlDocument document)
    : document_(std::move(document))
{
}

std::vector<XmlNode> LibraryDocument::products(const std::string& sAcronym, const std::string& sYear) const
{
    if ((sAcronym + sYear).find('"') != std::string::npos)
        return document_.selectNodes("Library/Product[@Acronym=\"" + sAcronym + "\" and @Year=\"" + sYear +
                                     "\"]");
    std::vector<XmlNode> nodes;
    const auto found = productIndex().find(pairKey(sAcronym, sYear));
    if (found != productIndex().end()) {
        for (const XmlCursor product : found->second)
            nodes.push_back(document_.at(product));
    }
    return nodes;
}

XmlNode LibraryDocument::folder(const std::string& sGuid) const
{
    return byGuid("Folder", &GuidIndex::folders, sGuid);
}

XmlNode LibraryDocument::document(const std::string& sGuid) const
{
    return byGuid("Document", &GuidIndex::documents, sGuid);
}

XmlNode LibraryDocument::byGuid(const char* element, ByGuid GuidIndex::*index, const std::string& sGuid) const
{
    if (sGuid.find('\'') != std::string::npos)
        return document_.selectSingleNode(".//" + std::string(element) + "[@Guid='" + sGuid + "']");
    const ByGuid& nodes = guidIndex().*index;
    const auto found = nodes.find(sGuid);
    return found == nodes.end() ? XmlNode() : document_.at(found->second);
}

const LibraryDocument::ProductIndex& LibraryDocument::productIndex() const
{
    if (products_)
        return *products_;
    products_.emplace();
    const XmlCursor library = document_.documentElement().cursor();
    if (!library || !library.isNamed("Library"))
        return *products_;
    for (XmlCursor at = library.firstElement(); at; at = at.nextElement()) {
        if (!at.isNamed("Product"))
            continue;
        const auto sAcronym = at.attribute("Acronym");
        const auto sYear = at.attribute("Year");
        if (sAcronym && sYear)
            (*products_)[pairKey(*sAcronym, *sYear)].push_back(at);
    }
    return *products_;
}

const LibraryDocument::GuidIndex& LibraryDocument::guidIndex() const
{
    if (guids_)
        return *guids_;
    guids_.emplace();
    const XmlCursor top = document_.documentElement().cursor();
    for (XmlCursor at = top; at; at = at.nextInDocument(top)) {
        const bool bDocument = at.isNamed("Document");
        if (!bDocument && !at.isNamed("Folder"))
            continue;
        // The first one of a Guid stays.
        if (auto sGuid = at.attribute("Guid"))
            (bDocument ? guids_->documents : guids_->folders).try_emplace(*std::move(sGuid), at);
    }
    return *guids_;
}

} // namespace zorvo
