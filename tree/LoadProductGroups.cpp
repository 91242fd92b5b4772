#include "tree/LoadProductGroups.h"

#include "base/failure.h"
#include "base/text.h"
#include "branding/BrandedMsgBox.h"
#include "platform/machineAccess.h"
#include "platform/xmlFiles.h"
#include "tree/LoadTreeDocuments.h"
#include "tree/NodeIcons.h"
#include "tree/nodeTag.h"
#include "tree/productLabel.h"
#include "tree/treeImages.h"
#include "tree/treeState.h"
#include "window/ListBarGroups.h"
#include "window/TreeNodes.h"
#include "window/messageBox.h"

#include <memory>
#include <utility>

namespace zorvo {

namespace {

/// One `ProductRegistryNode` of the status document.
struct ProductEntry {
    explicit ProductEntry(const XmlNode& node)
        : sKey(trimBlanks(node.childText("ProductKey")))
        , sVersion(trimBlanks(node.attribute("Version")))
        , sOwnLibrary(trimBlanks(node.childText("TemplatePath")) + kLibraryFileName)
    {
    }

    std::string sKey;
    std::string sVersion;
    std::string sOwnLibrary;
};

/// The catalogue that serves a product, and what its nodes' keys end in.
struct ServingLibrary {
    std::shared_ptr<const LibraryDocument> document;
    std::string sSuffix;
};

ServingLibrary libraryFor(const ProductEntry& entry)
{
    if (bFileExists(entry.sOwnLibrary))
        return {std::make_shared<LibraryDocument>(loadXmlFile(entry.sOwnLibrary)), "`" + entry.sOwnLibrary};
    if (!treeState().objLibraryDoc)
        throw RunTimeError(kObjectNotSet);
    return {treeState().objLibraryDoc, {}};
}

void tellMissingProduct(const ProductEntry& entry)
{
    BrandedMsgBox("The '" + GetZorvoPath(true) + "TreeData\\" + kLibraryFileName +
                      "' does not contain the product '" + entry.sKey + "' for the year " + entry.sVersion +
                      ". Please correct before this product is released.",
                  kMsgCritical);
}

/// One run over the groups of a status document.
class ProductGroupLoader {
public:
    ProductGroupLoader(TreeNodes& tree, bool bAllOfferings, const StatusDocument* statusCopy)
        : tree_(tree)
        , icons_(tree)
        , statusCopy_(statusCopy)
        , bAllOfferings_(bAllOfferings)
    {
    }

    /// What the progress is counted of.
    void expect(const std::vector<XmlNode>& groupNodes)
    {
        for (const XmlNode& group : groupNodes) {
            nTotal_ += static_cast<int>(group.childElements("ProductRegistryNode").size());
            expect(group.childElements("ProductGroup"));
        }
    }

    void load(const std::vector<XmlNode>& groupNodes, ListBarGroups* listBar, const std::string& sParentKey)
    {
        try {
            int nIndex = 0;
            for (const XmlNode& group : groupNodes) {
                const std::string sTitle = trimBlanks(group.childText("Title"));
                if (listBar && !treeState().bListBarLoaded)
                    addToListBar(*listBar, ++nIndex, sTitle, group);
                addGroup(group, sTitle, sParentKey);
                for (const XmlNode& node : group.childElements("ProductRegistryNode")) {
                    addEntry(node, sTitle);
                    tellProgress();
                }
            }
        } catch (const RunTimeError& error) {
            recordFailure(error);
            ReportError("TreeSupport.LoadProductGroups");
        }
    }

private:
    static void addToListBar(ListBarGroups& listBar, int nIndex, const std::string& sTitle,
                             const XmlNode& group)
    {
        const std::string sIcon = trimBlanks(group.childText("IconLarge"));
        listBar.add(nIndex, sTitle, trimBlanks(group.childText("TitleShort")),
                    GetListBarImageIndex(listBar, sIcon));
    }

    void addGroup(const XmlNode& group, const std::string& sTitle, const std::string& sParentKey)
    {
        const int nImage = GetTreeImageIndex(tree_, trimBlanks(group.childText("IconSmall")));
        TreeNode& node = tree_.add(sParentKey, sTitle, sTitle, nImage, kTagGroupOrProduct);
        tree_.setExpanded(node, true);
        const auto nested = group.childElements("ProductGroup");
        if (!nested.empty())
            load(nested, nullptr, sTitle);
    }

    void addEntry(const XmlNode& node, const std::string& sTitle)
    {
        const ProductEntry entry(node);
        if (bAllOfferings_) {
            addChildNode(tree_, sTitle, entry.sKey + "`" + trimBlanks(node.attribute("numProdClassID")),
                         trimBlanks(node.childText("ProductName")), icons_.nProduct, kTagGroupOrProduct);
        } else if (equalNoCase(node.attribute("Installed"), "True") && isCurrent(entry)) {
            addInstalled(entry, sTitle);
        }
    }

    /// Of several versions the textually largest one counts as the newest.
    bool isCurrent(const ProductEntry& entry) const
    {
        if (!statusCopy_)
            return true;
        const auto versions = statusCopy_->topLevelVersions(entry.sKey);
        if (versions.size() < 2)
            return true;
        std::string sNewest;
        for (const std::string& sText : versions) {
            std::string sVersion = trimBlanks(sText);
            if (compareNoCase(sVersion, sNewest) > 0)
                sNewest = std::move(sVersion);
        }
        return equalNoCase(sNewest, entry.sVersion);
    }

    void addInstalled(const ProductEntry& entry, const std::string& sTitle)
    {
        const ServingLibrary library = libraryFor(entry);
        const auto products = library.document->products(entry.sKey, entry.sVersion);
        if (products.empty())
            tellMissingProduct(entry);
        for (const XmlNode& product : products) {
            const std::string sName = trimBlanks(product.childText("Name"));
            const std::string sText =
                bNeedsYearLabel(sTitle, sName) ? sProductLabel(sName, product.attribute("Year")) : sName;
            const std::string sKey = product.attribute("Guid") + library.sSuffix;
            addChildNode(tree_, sTitle, sKey, sText, icons_.nProduct, kTagGroupOrProduct);
            LoadTreeDocuments(tree_, icons_, product.cursor(), sKey, library.sSuffix);
        }
    }

    void tellProgress()
    {
        if (nTotal_ > 0)
            treeState().progress(++nDone_, nTotal_);
    }

    TreeNodes& tree_;
    NodeIcons icons_;
    const StatusDocument* statusCopy_;
    bool bAllOfferings_;
    int nTotal_ = 0;
    int nDone_ = 0;
};

} // namespace

void LoadProductGroups(const std::vector<XmlNode>& groupNodes, TreeNodes& tree, ListBarGroups* listBar,
                       bool bAllOfferings, const StatusDocument* statusCopy, const std::string& sParentKey)
{
    ProductGroupLoader loader(tree, bAllOfferings, statusCopy);
    if (treeState().progress)
        loader.expect(groupNodes);
    loader.load(groupNodes, listBar, sParentKey);
}

} // namespace zorvo
