#include "client/TemplateFinder.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "branding/companyIdentity.h"
#include "catalogue/clsZorvoProductStatus.h"
#include "platform/machineAccess.h"
#include "platform/xmlFiles.h"
#include "tree/LoadProductGroups.h"
#include "tree/requiredText.h"

namespace zorvo {

namespace {

[[noreturn]] void fail(const std::string& sText)
{
    throw RunTimeError(kInvalidCall, sText);
}

/// Documents below the element, in folders too, in catalogue order. One without a name or a file is in no
/// tree.
void collect(XmlCursor parent, const std::string& sTemplatePath, const std::string& sType,
             const std::string& sYear, std::vector<SelectedDocument>& found)
{
    for (XmlCursor at = parent.firstElement(); at; at = at.nextElement()) {
        if (equalNoCase(at.baseName(), "Folder"))
            collect(at, sTemplatePath, sType, sYear, found);
        else if (equalNoCase(at.baseName(), "Document") && at.child("Name") && at.child("File"))
            found.push_back(selectedDocument(at, sTemplatePath, sType, sYear));
    }
}

template <typename Item, typename Matches>
std::vector<const Item*> matching(const std::vector<Item>& items, Matches matches)
{
    std::vector<const Item*> found;
    for (const Item& item : items) {
        if (matches(item))
            found.push_back(&item);
    }
    return found;
}

} // namespace

TemplateFinder::TemplateFinder()
{
    XmlDocument status;
    status.loadXML(clsZorvoProductStatus().sGetProductStatusXML());
    for (const XmlNode& node : status.selectNodes("//ProductRegistryNode")) {
        products_.push_back({.sKey = trimBlanks(node.childText("ProductKey")),
                             .sVersion = trimBlanks(node.attribute("Version")),
                             .sTemplatePath = trimBlanks(node.childText("TemplatePath")),
                             .bInstalled = equalNoCase(node.attribute("Installed"), "True")});
    }
}

std::vector<SelectedDocument> TemplateFinder::find(const TemplateName& name) const
{
    const ProductYear& product = productYear(name);
    const std::string sProduct = product.sKey + " " + product.sVersion;
    auto documents = documentsOf(product);
    if (documents.empty())
        fail("The catalogue has no documents of " + sProduct);
    if (name.sName == "*")
        return documents;
    auto found = matching(documents, [&](const auto& document) { return document.sTitle == name.sName; });
    if (found.empty())
        found = matching(documents,
                         [&](const auto& document) { return equalNoCase(document.sTitle, name.sName); });
    if (found.empty())
        fail("No document of " + sProduct + " has this name");
    if (found.size() > 1)
        fail(std::to_string(found.size()) + " documents of " + sProduct + " have this name");
    return {*found.front()};
}

const TemplateFinder::ProductYear& TemplateFinder::productYear(const TemplateName& name) const
{
    auto found = matching(products_, [&](const ProductYear& product) {
        return product.sKey == name.sProductKey && product.sVersion == name.sVersion;
    });
    if (found.empty()) {
        found = matching(products_, [&](const ProductYear& product) {
            return equalNoCase(product.sKey, name.sProductKey) &&
                   equalNoCase(product.sVersion, name.sVersion);
        });
    }
    if (found.empty()) {
        const bool bKey = !matching(products_, [&](const ProductYear& product) {
                               return equalNoCase(product.sKey, name.sProductKey);
                           }).empty();
        const std::string sCompany =
            GetCompanyID() == kDefaultCompany ? "" : " for the company " + GetCompanyID();
        fail((bKey ? "The product " + name.sProductKey + " has no year " + name.sVersion
                   : "There is no product " + name.sProductKey) +
             " on this machine" + sCompany);
    }
    for (const ProductYear* product : found) {
        if (product->sKey != found.front()->sKey || product->sVersion != found.front()->sVersion)
            fail("Several products have this key and year but for their case");
    }
    for (const ProductYear* product : found) {
        if (product->bInstalled)
            return *product;
    }
    fail("The product " + name.sProductKey + " " + name.sVersion + " is not installed");
}

std::vector<SelectedDocument> TemplateFinder::documentsOf(const ProductYear& product) const
{
    std::shared_ptr<const LibraryDocument> library;
    const std::string sOwnLibrary = product.sTemplatePath + kLibraryFileName;
    if (bFileExists(sOwnLibrary)) {
        library = std::make_shared<LibraryDocument>(loadXmlFile(sOwnLibrary));
    } else {
        if (!centralLibrary_)
            centralLibrary_ = std::make_shared<LibraryDocument>(
                loadXmlFile(GetZorvoPath(true) + "TreeData\\" + kLibraryFileName));
        library = centralLibrary_;
    }
    std::vector<SelectedDocument> documents;
    for (const XmlNode& element : library->products(product.sKey, product.sVersion)) {
        const XmlCursor cursor = element.cursor();
        collect(cursor, product.sTemplatePath, requiredAttribute(cursor, "Type"),
                requiredAttribute(cursor, "Year"), documents);
    }
    return documents;
}

} // namespace zorvo
