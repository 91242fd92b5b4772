#include "tests/client/CreateTest.h"

#include "base/sessionState.h"
#include "branding/xmlCaptionLoaderManager.h"
#include "catalogue/catalogueState.h"
#include "client/CreateCommand.h"
#include "creation/creationState.h"

#include <sstream>

namespace zorvo {

namespace {

void freshState()
{
    sessionState() = SessionState();
    captionState() = CaptionState();
    catalogueState() = CatalogueState();
    creationState() = CreationState();
}

} // namespace

void OfficeFiles::write(const std::string& path, std::string_view bytes)
{
    FakeFiles::write(path,
                     std::string(bGoodFiles ? "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1" : "") + std::string(bytes));
}

CreateTest::CreateTest()
{
    freshState();
    platform().files = files;
    platform().office = office;
    addProduct("AUDT", "2007",
               document("Engagement Letter", "Letter.dot") + "<Folder Guid='{F}'><Name>Planning</Name>" +
                   document("Time Budget", "Budget.xlt") + document("Income/Expense", "Income.xlt") +
                   "</Folder>");
    addProduct("AUDT", "2006", document("Engagement Letter", "Letter.dot"));
    addProduct("AUQ", "2007", document("Twice", "One.dot") + document("Twice", "Two.dot"));
    writeCatalogues();
    for (const char* path :
         {"C:\\T\\AUDT\\2007\\Letter.dot", "C:\\T\\AUDT\\2007\\Budget.xlt", "C:\\T\\AUDT\\2007\\Income.xlt",
          "C:\\T\\AUDT\\2006\\Letter.dot", "C:\\T\\AUQ\\2007\\One.dot", "C:\\T\\AUQ\\2007\\Two.dot"})
        files->addFile(path);
}

CreateTest::~CreateTest()
{
    freshState();
}

CreateTest::Run CreateTest::create(const std::vector<std::string>& args)
{
    std::ostringstream out;
    std::ostringstream err;
    const int nExit = createDocuments(args, out, err);
    return {nExit, out.str(), err.str()};
}

CreateTest::Run CreateTest::createInOut(std::vector<std::string> args)
{
    args.insert(args.begin(), {"--to", "C:\\Out"});
    return create(args);
}

void CreateTest::addProduct(const std::string& sKey, const std::string& sYear, const std::string& sDocuments)
{
    fakes.registry->setText(HKEY_LOCAL_MACHINE,
                            "Software\\Zorvo\\Tessora\\" + sKey + "\\" + sYear + "\\InstallDefaults",
                            "AppPath2", "C:\\T\\" + sKey + "\\" + sYear + "\\");
    files->addFolder("C:\\T\\" + sKey + "\\" + sYear + "\\");
    if (sTreeOrder_.find(">" + sKey + "<") == std::string::npos)
        sTreeOrder_ += "<Acronymn>" + sKey + "</Acronymn>";
    sLibrary_ += "<Product Acronym='" + sKey + "' Year='" + sYear +
                 "' Type='TYPE' Guid='{P}'><Name>P</Name>" + sDocuments + "</Product>";
}

std::string CreateTest::document(const std::string& sName, const std::string& sFile)
{
    return "<Document Guid='{" + sName + "}'><Name> " + sName + " </Name><File>" + sFile +
           "</File></Document>";
}

void CreateTest::writeCatalogues()
{
    files->addFile("C:\\Zorvo\\TreeData\\TreeOrder.xml",
                   "<ZorvoTree Version='1'><ProductTreeGroup TreeTitle='G' TreeTitleShort='G' IconLarge='' "
                   "IconSmall=''>" +
                       sTreeOrder_ + "</ProductTreeGroup></ZorvoTree>");
    files->addFile("C:\\Zorvo\\TreeData\\Zorvo Library.xml", "<Library>" + sLibrary_ + "</Library>");
}

} // namespace zorvo
