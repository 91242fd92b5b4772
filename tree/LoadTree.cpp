#include "tree/LoadTree.h"

#include "base/failure.h"
#include "base/sessionState.h"
#include "branding/companyIdentity.h"
#include "catalogue/clsZorvoProductStatus.h"
#include "platform/machineAccess.h"
#include "platform/xmlFiles.h"
#include "tree/LoadProductGroups.h"
#include "tree/nodeTag.h"
#include "tree/treeImages.h"
#include "tree/treeState.h"
#include "window/ListBarGroups.h"
#include "window/TreeNodes.h"

namespace zorvo {

namespace {

constexpr std::int16_t kAutomationTrue = -1;

void clearForRebuild(TreeNodes& tree, ListBarGroups* listBar)
{
    treeState().bListBarLoaded = false;
    tree.images().clear();
    if (listBar)
        listBar->clear();
}

void loadImages(TreeNodes& tree, ListBarGroups* listBar, bool bAllOfferings)
{
    if (!bAllOfferings && treeState().bListBarLoaded)
        return;
    const bool bForListBar = !bAllOfferings && listBar;
    if (bForListBar)
        LoadListBarImages(*listBar);
    LoadTreeImages(tree, bForListBar ? &listBar->images() : nullptr);
}

std::shared_ptr<const LibraryDocument> centralLibrary()
{
    auto& library = treeState().objLibraryDoc;
    if (!library)
        library = std::make_shared<LibraryDocument>(
            loadXmlFile(GetZorvoPath(true) + "TreeData\\" + kLibraryFileName));
    return library;
}

std::shared_ptr<const StatusDocument> newStatusDocument(bool bAllOfferings)
{
    XmlDocument document;
    document.loadXML(clsZorvoProductStatus().sGetProductStatusXML(0, bAllOfferings ? kAutomationTrue : 0));
    return std::make_shared<StatusDocument>(std::move(document));
}

std::shared_ptr<const StatusDocument> statusDocument(bool bAllOfferings)
{
    if (bAllOfferings)
        return newStatusDocument(true);
    auto& status = treeState().objStatusDoc;
    if (!status)
        status = newStatusDocument(false);
    return status;
}

/// The entry behind all products' groups: the company's pages.
void addWebGroup(ListBarGroups& listBar)
{
    const std::string sCompany = GetCompanyID();
    listBar.add(listBar.count() + 1, sCompany + "net", (sCompany == "OTR" ? "NDF" : sCompany) + " on the Web",
                GetListBarImageIndex(listBar, "Zorvo.ico"));
}

void fill(TreeNodes& tree, ListBarGroups* listBar, bool bAllOfferings, bool bRebuild)
{
    const TreeNodes::Bulk bulk(tree);
    if (bRebuild)
        clearForRebuild(tree, listBar);
    tree.clear();
    loadImages(tree, listBar, bAllOfferings);

    // Held here as well: a box that comes up while the tree fills may let the main window go.
    const auto library = centralLibrary();
    const auto status = statusDocument(bAllOfferings);
    const bool bCurrentOnly = !bAllOfferings && sessionState().bShowCurrentOnly;
    LoadProductGroups(status->groups(), tree, listBar, bAllOfferings, bCurrentOnly ? status.get() : nullptr,
                      "");

    if (!treeState().bListBarLoaded && listBar)
        addWebGroup(*listBar);
    if (!bAllOfferings)
        tree.removeChildless([](const TreeNode& node) { return node.tag() == kTagGroupOrProduct; });
    treeState().bListBarLoaded = true;
}

} // namespace

void LoadTree(TreeNodes& tree, ListBarGroups* listBar, bool bAllOfferings, bool bRebuild)
{
    try {
        fill(tree, listBar, bAllOfferings, bRebuild);
    } catch (const RunTimeError& error) {
        recordFailure(error);
        ReportError("TreeSupport.LoadTree");
    }
}

} // namespace zorvo
