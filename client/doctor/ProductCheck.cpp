#include "client/doctor/ProductCheck.h"

#include "base/RunTimeError.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "base/text.h"
#include "catalogue/InstallInfo.h"
#include "catalogue/registryKeys.h"
#include "catalogue/statusTemplates.h"
#include "client/doctor/CatalogueFiles.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/machineAccess.h"
#include "tree/LibraryDocument.h"
#include "tree/LoadProductGroups.h"
#include "tree/SelectedDocument.h"

#include <map>
#include <memory>
#include <set>
#include <utility>

namespace zorvo {

namespace {

constexpr const char* kZorvoKey = "Software\\Zorvo\\";

struct ProductYear {
    std::string sFamily;
    std::string sProduct;
    std::string sYear;
    Hive hive;

    std::string text() const { return sProduct + " " + sYear; }
};

std::string below(const std::string& sKey, const std::string& sName)
{
    return sKey + "\\" + sName;
}

std::vector<std::string> subKeys(Hive hive, const std::string& sPath)
{
    std::vector<std::string> names;
    const auto key = OpenKeyToRead(hive, sPath);
    std::string sName;
    std::int32_t nStatus = key ? kRegistrySuccess : kRegistryFileNotFound;
    for (std::size_t n = 0; nStatus == kRegistrySuccess; ++n) {
        EnumKeyName(*key, n, sName, nStatus);
        if (nStatus == kRegistrySuccess)
            names.push_back(sName);
    }
    return names;
}

/// As the scan of the products finds them: keys named by a number, and the marks of the year 2002 unless the
/// user has a key for it.
std::set<std::string> yearsOf(Hive hive, const std::string& sProductPath)
{
    std::set<std::string> years;
    for (const std::string& sName : subKeys(hive, sProductPath)) {
        const bool bMark = sName == "CurrentVersion" || sName == "InstallDefaults";
        if (bMark && OpenKeyToRead(HKEY_CURRENT_USER, sProductPath + "\\2002\\InstallDefaults"))
            break;
        if (bMark || isNumeric(sName))
            years.insert(bMark ? "2002" : sName);
    }
    return years;
}

std::vector<ProductYear> registeredYears()
{
    std::vector<ProductYear> found;
    for (const char* sFamily : {"Quillbook", "Tessora"}) {
        for (const Hive hive : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
            const std::string sFamilyPath = std::string(kZorvoKey) + sFamily;
            for (const std::string& sProduct : subKeys(hive, sFamilyPath)) {
                for (const std::string& sYear : yearsOf(hive, below(sFamilyPath, sProduct)))
                    found.push_back({sFamily, sProduct, sYear, hive});
            }
        }
    }
    return found;
}

std::string nativeOf(const std::string& sPath)
{
    return platform().files->toNative(sPath);
}

/// All product years one after the other: what one of them uses no other may use again.
class ProductCheck {
public:
    DiagnosisItem check(const ProductYear& year);

private:
    struct Place {
        std::string sName;
        std::string sProduct;
        long nLine = 0;
    };
    struct Catalogue {
        std::shared_ptr<LibraryDocument> library;
        std::string sPath;
        std::string sKeySuffix;
    };

    void checkRegistration(const ProductYear& year, const std::string& sTitle);
    void checkInstallation(const ProductYear& year);
    void checkUnusablePath(const ProductYear& year);
    void checkFolder(const ProductYear& year);
    Catalogue catalogueOf();
    void checkCatalogue(const ProductYear& year, const Catalogue& catalogue);
    void checkElement(XmlCursor element, const Catalogue& catalogue, const char* sKind);
    void checkBelow(XmlCursor parent, const Catalogue& catalogue);
    void checkTemplate(XmlCursor document, const Catalogue& catalogue);
    void addFault(const char* sCode, const std::string& sText, const std::string& sFile = {}, long nLine = 0);

    const TreeOrderContent treeOrder_ = treeOrderContent();
    std::set<std::pair<std::string, std::string>> seen_;
    std::map<std::string, Place> guids_;
    std::map<std::string, std::shared_ptr<LibraryDocument>> libraries_;

    DiagnosisItem item_;
    std::string sProduct_;
    std::string sTemplatePath_;
    bool bInstalled_ = false;
    std::int64_t nDocuments_ = 0;
};

DiagnosisItem ProductCheck::check(const ProductYear& year)
{
    item_ = {year.sFamily + "\\" + year.text()};
    sProduct_ = year.text();
    nDocuments_ = 0;
    GetQBKInfo(year.sProduct, year.sFamily, year.sYear, bInstalled_, sTemplatePath_, year.hive);
    const std::string sTitle = GetProductTitle(year.sFamily + "\\" + year.sProduct, year.hive);
    item_.facts = {{"title", sTitle},
                   {"hive", std::string(year.hive == HKEY_CURRENT_USER ? "user" : "machine")},
                   {"installed", bInstalled_}};
    checkRegistration(year, sTitle);
    checkInstallation(year);
    return std::move(item_);
}

void ProductCheck::checkRegistration(const ProductYear& year, const std::string& sTitle)
{
    if (sTitle.empty())
        addFault("product.title", "The product " + year.sProduct + " has no title, or one that is too long");
    if (treeOrder_.bRead && !treeOrder_.productKeys.contains(year.sProduct))
        addFault("product.treeOrder",
                 "The tree order doesn't name the product " + year.sProduct + ", so that it is never shown");
    try {
        toLong(year.sYear);
    } catch (const RunTimeError&) {
        addFault("product.year", "The year " + year.sYear + " is so large that no product can be listed");
    }
    // What the registry says goes into an XML text as it stands.
    XmlDocument node;
    if (!node.loadXML(BuildProductNode({.sName = sTitle,
                                        .sProductKey = year.sProduct,
                                        .sYear = year.sYear,
                                        .bInstalled = bInstalled_,
                                        .sTemplatePath = sTemplatePath_})))
        addFault("product.characters",
                 "Key, title or folder of " + sProduct_ + " hold characters that no product list can hold");
}

void ProductCheck::checkInstallation(const ProductYear& year)
{
    if (!bInstalled_) {
        checkUnusablePath(year);
        return;
    }
    item_.facts.push_back({"folder", nativeOf(sTemplatePath_)});
    if (!seen_.emplace(year.sProduct, year.sYear).second) {
        addFault("product.twice", sProduct_ + " is registered more than once, and the tree can show it once");
        return;
    }
    checkFolder(year);
    const Catalogue catalogue = catalogueOf();
    item_.facts.push_back({"catalogue", nativeOf(catalogue.sPath)});
    if (catalogue.library)
        checkCatalogue(year, catalogue);
    item_.facts.push_back({"documents", nDocuments_});
}

/// A year without a folder is announced and not installed; one whose folder can't be read is at fault.
void ProductCheck::checkUnusablePath(const ProductYear& year)
{
    const std::string sYear = year.sYear == "2002" ? "" : "\\" + year.sYear;
    const auto key =
        OpenKeyToRead(year.sYear == "2002" ? HKEY_LOCAL_MACHINE : year.hive,
                      kZorvoKey + year.sFamily + "\\" + year.sProduct + sYear + "\\InstallDefaults");
    std::string sData;
    RegistryType type{};
    if (key && key->queryValue("AppPath2", kLargestRegistryValue, sData, type) == kRegistrySuccess)
        addFault("product.folder", "The template folder of " + sProduct_ + " has a path that is too long");
}

void ProductCheck::checkFolder(const ProductYear& year)
{
    const std::string sFolder = withBackslash(sTemplatePath_);
    if (sTemplatePath_.empty())
        addFault("product.folder", "The template folder of " + sProduct_ + " is an empty text");
    else if (!platform().files->folderExists(sFolder))
        addFault("product.folderMissing", "The template folder of " + year.text() + " isn't there",
                 nativeOf(sTemplatePath_));
    for (const std::string& sFile : {sFolder + "TreeOrder.xml", sTemplatePath_ + "Zorvo_Engagement.xml"}) {
        if (!sTemplatePath_.empty() && bFileExists(sFile))
            readCatalogue(sFile, item_.faults);
    }
}

/// The product's own copy where it has one. The central one's own faults are told with the files.
ProductCheck::Catalogue ProductCheck::catalogueOf()
{
    const std::string sOwn = sTemplatePath_ + kLibraryFileName;
    const bool bOwn = !sTemplatePath_.empty() && bFileExists(sOwn);
    const std::string sPath = bOwn ? sOwn : GetZorvoPath(true) + "TreeData\\" + kLibraryFileName;
    const auto [found, bNew] = libraries_.try_emplace(sPath);
    if (bNew && (bOwn || bFileExists(sPath))) {
        std::vector<Fault> central;
        XmlDocument document = readCatalogue(sPath, bOwn ? item_.faults : central);
        if (!document.isEmpty())
            found->second = std::make_shared<LibraryDocument>(std::move(document));
    }
    return {found->second, sPath, bOwn ? "`" + sOwn : ""};
}

void ProductCheck::checkCatalogue(const ProductYear& year, const Catalogue& catalogue)
{
    std::vector<XmlNode> products;
    try {
        products = catalogue.library->products(year.sProduct, year.sYear);
    } catch (const RunTimeError&) { // a key that no question to the catalogue can hold has no entry either
    }
    if (products.empty())
        addFault("product.catalogue", "The catalogue has no entry for " + sProduct_,
                 nativeOf(catalogue.sPath));
    for (const XmlNode& product : products) {
        checkElement(product.cursor(), catalogue, "product");
        if (!product.attributeIfAny("Type"))
            addFault("document.incomplete", "The product has no Type", nativeOf(catalogue.sPath),
                     product.cursor().line());
        checkBelow(product.cursor(), catalogue);
    }
}

void ProductCheck::checkElement(XmlCursor element, const Catalogue& catalogue, const char* sKind)
{
    const std::string sFile = nativeOf(catalogue.sPath);
    const XmlCursor name = element.child("Name");
    const std::string sName = name ? name.trimmedText() : std::string();
    if (!name)
        addFault("document.incomplete", std::string("A ") + sKind + " has no Name", sFile, element.line());
    const auto sGuid = element.attribute("Guid");
    if (!sGuid) {
        addFault("document.incomplete", std::string("The ") + sKind + " " + sName + " has no Guid", sFile,
                 element.line());
        return;
    }
    const auto [first, bNew] =
        guids_.try_emplace(*sGuid + catalogue.sKeySuffix, Place{sName, sProduct_, element.line()});
    if (!bNew)
        addFault("document.duplicateGuid",
                 "The Guid " + *sGuid + " of " + sName + " is that of " + first->second.sName + " (" +
                     first->second.sProduct + ", line " + std::to_string(first->second.nLine) + ") too",
                 sFile, element.line());
}

void ProductCheck::checkBelow(XmlCursor parent, const Catalogue& catalogue)
{
    for (XmlCursor at = parent.firstElement(); at; at = at.nextElement()) {
        if (equalNoCase(at.baseName(), "Folder")) {
            checkElement(at, catalogue, "folder");
            checkBelow(at, catalogue);
        } else if (equalNoCase(at.baseName(), "Document")) {
            checkElement(at, catalogue, "document");
            checkTemplate(at, catalogue);
        }
    }
}

void ProductCheck::checkTemplate(XmlCursor document, const Catalogue& catalogue)
{
    ++nDocuments_;
    if (!document.child("File")) {
        addFault("document.incomplete", "A document has no File", nativeOf(catalogue.sPath), document.line());
        return;
    }
    if (!document.child("Name"))
        return; // told already
    const SelectedDocument selected = selectedDocument(document, sTemplatePath_, {}, {});
    const std::string sTemplate = nativeOf(selected.sFileName);
    if (!bFileExists(selected.sFileName)) {
        addFault("template.missing", "The template of " + selected.sTitle + " isn't there", sTemplate);
        return;
    }
    try {
        if (platform().files->size(selected.sFileName) == 0)
            addFault("template.empty", "The template of " + selected.sTitle + " is empty", sTemplate);
    } catch (const RunTimeError& error) {
        addFault("template.missing",
                 "The template of " + selected.sTitle + " can't be read: " + error.description(), sTemplate);
    }
}

void ProductCheck::addFault(const char* sCode, const std::string& sText, const std::string& sFile, long nLine)
{
    item_.faults.push_back({sCode, sText, sFile, nLine});
}

} // namespace

DiagnosisSection checkProducts()
{
    DiagnosisSection section{"products"};
    ProductCheck check;
    for (const ProductYear& year : registeredYears())
        section.items.push_back(check.check(year));
    return section;
}

} // namespace zorvo
