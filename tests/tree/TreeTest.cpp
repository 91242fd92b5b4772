#include "tests/tree/TreeTest.h"

#include "base/sessionState.h"
#include "branding/xmlCaptionLoaderManager.h"
#include "catalogue/catalogueState.h"
#include "tree/SelectionConsumer.h"
#include "window/clsMousePointer.h"

#include <functional>

namespace zorvo {

namespace {

void freshState()
{
    sessionState() = SessionState();
    sessionState().bShowCurrentOnly = false;
    captionState() = CaptionState();
    catalogueState() = CatalogueState();
    treeState() = TreeState();
    setSelectionConsumer({});
    goMousePointer().ClearMousePointer();
}

} // namespace

TreeTest::TreeTest()
{
    freshState();
}

TreeTest::~TreeTest()
{
    freshState();
}

void TreeTest::setLibrary(const std::string& sProducts)
{
    setOwnLibrary("C:\\Zorvo\\TreeData\\", sProducts);
}

void TreeTest::setOwnLibrary(const std::string& sFolder, const std::string& sProducts)
{
    fakes.files->addFile(sFolder + "Zorvo Library.xml", "<Library>" + sProducts + "</Library>");
}

void TreeTest::setStatus(const std::string& sGroups)
{
    XmlDocument status;
    ASSERT_TRUE(status.loadXML("<ZorvoMSOfficeProductsStatus>" + sGroups + "</ZorvoMSOfficeProductsStatus>"));
    treeState().objStatusDoc = std::make_shared<StatusDocument>(status);
}

void TreeTest::addIcon(const std::string& sName)
{
    fakes.files->addFile("C:\\Zorvo\\Images\\" + sName, pictureBytes());
}

std::vector<std::string> TreeTest::lines() const
{
    std::vector<std::string> result;
    const std::function<void(const TreeNode&, int)> walk = [&](const TreeNode& at, int nDepth) {
        result.push_back(std::string(static_cast<std::size_t>(nDepth) * 2, ' ') + at.key() + "|" + at.text() +
                         "|" + std::to_string(at.tag()));
        for (const TreeNode* child : at.children())
            walk(*child, nDepth + 1);
    };
    for (const TreeNode* root : tree.roots())
        walk(*root, 0);
    return result;
}

std::vector<std::string> TreeTest::keys() const
{
    std::vector<std::string> result;
    for (int i = 1; i <= tree.count(); ++i)
        result.push_back(tree.item(i).key());
    return result;
}

TreeNode& TreeTest::node(const std::string& sKey)
{
    TreeNode* found = tree.find(sKey);
    if (!found)
        throw std::runtime_error("no node " + sKey);
    return *found;
}

std::string group(const std::string& sTitle, const std::string& sChildren)
{
    return "<ProductGroup><Title> " + sTitle + " </Title><TitleShort> " + sTitle +
           " short </TitleShort><IconLarge> " + sTitle + ".ico </IconLarge><IconSmall> " + sTitle +
           "16.ico </IconSmall>" + sChildren + "</ProductGroup>";
}

std::string entry(const Entry& values)
{
    return "<ProductRegistryNode Version=\"" + values.sVersion + "\" Installed=\"" + values.sInstalled +
           "\" SWDType=\"False\" LatestFlag=\"True\" numProdClassID=\"\"><ProductKey>" + values.sKey +
           "</ProductKey><ProductName>" + values.sKey + " name</ProductName><TemplatePath><![CDATA[" +
           values.sTemplatePath + "]]></TemplatePath></ProductRegistryNode>";
}

std::string product(const std::string& sAcronym, const std::string& sYear, const std::string& sGuid,
                    const std::string& sName, const std::string& sChildren)
{
    return "<Product Acronym=\"" + sAcronym + "\" Year=\"" + sYear + "\" Type=\"T" + sAcronym + "\" Guid=\"" +
           sGuid + "\"><Name> " + sName + " </Name>" + sChildren + "</Product>";
}

std::string folder(const std::string& sGuid, const std::string& sName, const std::string& sChildren)
{
    return "<Folder Guid=\"" + sGuid + "\"><Name>" + sName + "</Name>" + sChildren + "</Folder>";
}

std::string document(const std::string& sGuid, const std::string& sName, const std::string& sFile,
                     const std::string& sDesc)
{
    return "<Document Guid=\"" + sGuid + "\"><Name> " + sName + " </Name><File> " + sFile +
           " </File><Desc> " + sDesc + " </Desc></Document>";
}

std::string pictureBytes()
{
    // A bitmap of one pixel, 24 bits deep.
    static constexpr unsigned char kBytes[] = {
        'B', 'M', 58, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0, 40, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 24,
        0,   0,   0,  0, 0, 4, 0, 0, 0, 0, 0,  0, 0, 0, 0,  0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 7, 8, 9, 0};
    return {reinterpret_cast<const char*>(kBytes), sizeof kBytes};
}

} // namespace zorvo
