#include "tests/catalogue/CatalogueTest.h"

#include "base/RunTimeError.h"
#include "base/sessionState.h"
#include "catalogue/catalogueState.h"

#include <QImage>

namespace zorvo {

CatalogueTest::CatalogueTest()
{
    catalogueState() = CatalogueState();
    sessionState() = SessionState();
}

CatalogueTest::~CatalogueTest()
{
    catalogueState() = CatalogueState();
    sessionState() = SessionState();
}

void CatalogueTest::setTreeOrder(const std::string& sGroups)
{
    fakes.files->addFile("C:\\Zorvo\\TreeData\\TreeOrder.xml",
                         "<ZorvoTree Version=\"1\">" + sGroups + "</ZorvoTree>");
}

void CatalogueTest::addYear(Hive hive, const std::string& sGroup, const std::string& sProduct,
                            const std::string& sYear, const std::string& sAppPath)
{
    fakes.registry->setText(
        hive, "Software\\Zorvo\\" + sGroup + "\\" + sProduct + "\\" + sYear + "\\InstallDefaults", "AppPath2",
        sAppPath);
}

void CatalogueTest::setTitle(Hive hive, const std::string& sGroup, const std::string& sProduct,
                             const std::string& sTitle)
{
    fakes.registry->setText(hive, "Software\\Zorvo\\" + sGroup + "\\" + sProduct, "Title", sTitle);
}

std::string treeGroup(const std::string& sName, const std::string& sChildren)
{
    return "<ProductTreeGroup TreeTitle='" + sName + "' TreeTitleShort='" + sName + "S' IconLarge='" + sName +
           "32.ico' IconSmall='" + sName + "16.ico'>" + sChildren + "</ProductTreeGroup>";
}

std::string statusGroup(const std::string& sName, const std::string& sChildren)
{
    return "<ProductGroup><Title><![CDATA[" + sName + "]]></Title><TitleShort><![CDATA[" + sName +
           "S]]></TitleShort><IconLarge><![CDATA[" + sName + "32.ico]]></IconLarge><IconSmall><![CDATA[" +
           sName + "16.ico]]></IconSmall>" + sChildren + "</ProductGroup>";
}

std::string statusDocument(const std::string& sGroups)
{
    return "<?xml version=\"1.0\" encoding=\"utf-8\" ?><ZorvoMSOfficeProductsStatus>" + sGroups +
           "</ZorvoMSOfficeProductsStatus>";
}

std::string statusNode(const ExpectedNode& node)
{
    return "<ProductRegistryNode Version=\"" + node.sVersion + "\" Installed=\"" + node.sInstalled +
           "\" SWDType=\"" + node.sSwdType + "\" LatestFlag=\"" + node.sLatest + "\" numProdClassID=\"" +
           node.sClassID + "\"><ProductKey><![CDATA[" + node.sKey + "]]></ProductKey><ProductName><![CDATA[" +
           node.sName + "]]></ProductName><TemplatePath><![CDATA[" + node.sPath +
           "]]></TemplatePath></ProductRegistryNode>";
}

int numberOfFailure(const std::function<void()>& call)
{
    try {
        call();
    } catch (const RunTimeError& error) {
        return error.number();
    }
    return 0;
}

} // namespace zorvo
