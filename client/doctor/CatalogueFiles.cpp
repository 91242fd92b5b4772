#include "client/doctor/CatalogueFiles.h"

#include "base/RunTimeError.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "base/xmlParsing.h"
#include "branding/brandedFiles.h"
#include "catalogue/TreeOrder.h"
#include "catalogue/TreeOrderServer.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/machineAccess.h"
#include "tree/LoadProductGroups.h"

#include <initializer_list>

namespace zorvo {

namespace {

constexpr const char* kCaptionFile = "xmlCaptions.xml";

std::string nativeOf(const std::string& sPath)
{
    return platform().files->toNative(sPath);
}

/// Nothing where a server gives the document: asking it would write its file.
std::optional<std::string> treeOrderFile()
{
    if (bHasTreeOrderServer(GetZorvoPath(true)))
        return std::nullopt;
    try {
        return sGetTreeOrderXML();
    } catch (const RunTimeError&) { // a copy without an edition; each copy is looked at by itself
        return GetZorvoPath(true) + "TreeData\\TreeOrder.xml";
    }
}

DiagnosisItem itemOf(const std::string& sPath)
{
    return {sGetFileName(sPath, false), {{"path", nativeOf(sPath)}}};
}

/// A file that must be there and be well formed.
DiagnosisItem catalogueItem(const std::string& sPath, XmlDocument& document)
{
    DiagnosisItem item = itemOf(sPath);
    if (bFileExists(sPath))
        document = readCatalogue(sPath, item.faults);
    else
        item.faults.push_back({"file.missing", "The file isn't there", nativeOf(sPath)});
    return item;
}

DiagnosisItem catalogueItem(const std::string& sPath)
{
    XmlDocument document;
    return catalogueItem(sPath, document);
}

/// What makes the whole list of products fail, or the tree stop half-way.
class TreeOrderFaults {
public:
    TreeOrderFaults(std::string sFile, std::vector<Fault>& faults)
        : sFile_(std::move(sFile))
        , faults_(faults)
    {
    }

    void check(const XmlDocument& document)
    {
        const XmlNode root = document.selectSingleNode("ZorvoTree");
        if (!root) {
            add("treeOrder.version", "The document's root isn't ZorvoTree", 1);
            return;
        }
        const auto sVersion = root.attributeIfAny("Version");
        if (!sVersion || !isNumeric(*sVersion))
            add("treeOrder.version", "The document has no edition number", root.cursor().line());
        checkGroups(root.cursor());
    }

private:
    void checkGroups(XmlCursor parent)
    {
        for (XmlCursor at = parent.firstElement(); at; at = at.nextElement()) {
            if (!at.isNamed("ProductTreeGroup"))
                continue;
            for (const char* sName : {"TreeTitle", "TreeTitleShort", "IconLarge", "IconSmall"}) {
                if (!at.attribute(sName))
                    add("treeOrder.group", std::string("A group has no ") + sName, at.line());
            }
            const auto sTitle = at.attribute("TreeTitle");
            if (sTitle && !titles_.insert(*sTitle).second)
                add("treeOrder.twice", "Two groups have the title " + *sTitle, at.line());
            checkGroups(at);
        }
    }

    void add(const char* sCode, const std::string& sText, long nLine)
    {
        faults_.push_back({sCode, sText, sFile_, nLine});
    }

    std::string sFile_;
    std::vector<Fault>& faults_;
    std::set<std::string> titles_;
};

DiagnosisItem treeOrderItem()
{
    const auto sPath = treeOrderFile();
    if (!sPath)
        return {"TreeOrder.xml", {{"path", "from the tree order server"}}};
    XmlDocument document;
    DiagnosisItem item = catalogueItem(*sPath, document);
    if (!document.isEmpty())
        TreeOrderFaults(nativeOf(*sPath), item.faults).check(document);
    return item;
}

DiagnosisItem logItem()
{
    std::string sFolder;
    bGetDocsFolder(sFolder, "\\Halvern House\\Brendle\\");
    const std::string sPath = sJoinPath(sFolder, "Brendle.err");
    DiagnosisItem item = itemOf(sPath);
    if (!bFileExists(sPath))
        return item;
    try {
        item.facts.push_back({"bytes", static_cast<std::int64_t>(platform().files->size(sPath))});
        platform().files->read(sPath);
    } catch (const RunTimeError& error) {
        item.faults.push_back(
            {"log.unreadable", "The error log can't be read: " + error.description(), nativeOf(sPath)});
    }
    return item;
}

} // namespace

DiagnosisSection checkFiles()
{
    const std::string sProgram = GetZorvoPath(true);
    const std::string sTreeData = sProgram + "TreeData\\";
    DiagnosisSection section{"files"};
    section.items = {treeOrderItem(), catalogueItem(sTreeData + kLibraryFileName),
                     catalogueItem(sTreeData + "Zorvo_Engagement.xml"),
                     catalogueItem(sTreeData + "SWDXML.xml"),
                     catalogueItem(GetBrandedFilePath(kCaptionFile))};
    for (const std::string& sCompany : treeOrderContent().companies) {
        const std::string sCaptions = sProgram + sCompany + "\\" + kCaptionFile;
        if (bFileExists(sCaptions))
            section.items.push_back(catalogueItem(sCaptions));
    }
    section.items.push_back(logItem());
    return section;
}

TreeOrderContent treeOrderContent()
{
    TreeOrderContent content;
    const auto sPath = treeOrderFile();
    std::vector<Fault> ignored;
    if (!sPath || !bFileExists(*sPath))
        return content;
    const XmlDocument document = readCatalogue(*sPath, ignored);
    content.bRead = !document.isEmpty();
    for (const XmlNode& product : document.selectNodes("//Acronymn")) {
        content.productKeys.insert(product.text());
        if (const auto sCompany = product.attributeIfAny("companyID"))
            content.companies.insert(*sCompany);
    }
    return content;
}

XmlDocument readCatalogue(const std::string& sPath, std::vector<Fault>& faults)
{
    XmlDocument document;
    try {
        const std::string sBytes = platform().files->read(sPath);
        if (const auto fault = xmlFault(sBytes))
            faults.push_back({"file.malformed", "The file isn't well formed: " + fault->sText,
                              nativeOf(sPath), fault->nLine});
        else
            document.loadBytes(sBytes);
    } catch (const RunTimeError& error) {
        faults.push_back(
            {"file.unreadable", "The file can't be read: " + error.description(), nativeOf(sPath)});
    }
    return document;
}

} // namespace zorvo
