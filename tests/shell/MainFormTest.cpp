#include "tests/shell/MainFormTest.h"

#include "base/sessionState.h"
#include "branding/xmlCaptionLoaderManager.h"
#include "creation/ProcessSelectedDocs.h"
#include "creation/creationState.h"
#include "shell/forms/QtShellForms.h"
#include "shell/forms/formInstances.h"
#include "shell/shellState.h"
#include "tree/treeState.h"
#include "window/MainFormGate.h"
#include "window/clsMousePointer.h"

#include <QTest>

namespace zorvo {

namespace {

constexpr const char* kTreeOrder = R"(<ZorvoTree Version="3">
<ProductTreeGroup TreeTitle="Tessora" TreeTitleShort="Tess" IconLarge="T.ico" IconSmall="T16.ico">
<Acronymn>AUD</Acronymn></ProductTreeGroup>
<ProductTreeGroup TreeTitle="Sablewood Libraries" TreeTitleShort="Libraries" IconLarge="S.ico" IconSmall="S16.ico">
<Acronymn>SablewoodLibrary</Acronymn></ProductTreeGroup></ZorvoTree>)";

constexpr const char* kLibrary = R"(<Library>
<Product Acronym="AUD" Year="2006" Guid="p6" Type="TSR"><Name>Audit</Name>
<Folder Guid="f1"><Name>Planning</Name><Desc>Papers &amp; plans</Desc>
<Document Guid="d1"><Name>Planning memo</Name><File>Memo.dot</File><Desc>What we plan &amp; why</Desc></Document>
<Document Guid="d2"><Name>Trial balance</Name><File>Balance.xlt</File><Desc>The balances</Desc></Document>
</Folder>
<Document Guid="d3"><Name>Letter</Name><File>Letter.dot</File><Desc>A letter</Desc></Document>
</Product>
<Product Acronym="AUD" Year="2005" Guid="p5" Type="TSR"><Name>Audit before</Name>
<Document Guid="d4"><Name>Old letter</Name><File>Old.dot</File></Document></Product>
<Product Acronym="SablewoodLibrary" Year="2006" Guid="p7" Type="SWD"><Name>Library</Name>
<Document Guid="d5"><Name>Guide</Name><File>Guide.dot</File></Document></Product>
</Library>)";

constexpr const char* kCaptions =
    R"(<Captions><TemplateTreeCaptions><DialogTitle>Title of the document</DialogTitle>
</TemplateTreeCaptions><Web><ContactUs>http://contact.example</ContactUs><OnTheWeb1>http://faq.example</OnTheWeb1>
<OnTheWeb2>http://one.example</OnTheWeb2><OnTheWeb3>http://two.example</OnTheWeb3>
<QuickTour>http://tour.example</QuickTour><MyAccount>http://account.example</MyAccount></Web></Captions>)";

void registerYear(FakeRegistry& registry, const std::string& sProduct, const std::string& sYear)
{
    const std::string sKey = "Software\\Zorvo\\Tessora\\" + sProduct;
    registry.setText(HKEY_LOCAL_MACHINE, sKey, "Title", sProduct);
    registry.setText(HKEY_LOCAL_MACHINE, sKey + "\\" + sYear + "\\InstallDefaults", "AppPath2",
                     "C:\\T\\" + sProduct + sYear + "\\");
}

} // namespace

MainFormTest::MainFormTest()
{
    sessionState() = SessionState();
    shellState() = ShellState();
    treeState() = TreeState();
    creationState() = CreationState();
    ReleaseCaptions();
    platform().service = service;
    platform().objects = objects;
    platform().office = office;
    objects->provideObject("Brendle.ActXManager");

    fakes.files->addFile("C:\\Zorvo\\TreeData\\TreeOrder.xml", kTreeOrder);
    fakes.files->addFile("C:\\Zorvo\\TreeData\\Zorvo Library.xml", kLibrary);
    fakes.files->addFile("C:\\Zorvo\\xmlCaptions.xml", kCaptions);
    for (const char* sYear : {"2005", "2006"})
        registerYear(*fakes.registry, "AUD", sYear);
    registerYear(*fakes.registry, "SablewoodLibrary", "2006");
    for (const char* sFile :
         {"AUD2006\\Memo.dot", "AUD2006\\Balance.xlt", "AUD2006\\Letter.dot", "AUD2005\\Old.dot"})
        fakes.files->addFile(std::string("C:\\T\\") + sFile, "template");

    installQtForms();
    installSelectionConsumer();
}

MainFormTest::~MainFormTest()
{
    if (shellState().gfrmMain)
        closeForm();
    templateTree().unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    goMousePointer().ClearMousePointer();
    shellState() = ShellState();
    mainFormGate() = nullptr;
    ReleaseCaptions();
}

TemplateTree& MainFormTest::form()
{
    return templateTree().get();
}

TemplateTree& MainFormTest::shownForm()
{
    form().showModeless();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form()));
    return form();
}

void MainFormTest::closeForm()
{
    try {
        form().Form::unload(UnloadMode::closeBox);
        ADD_FAILURE() << "the unload must end the process";
    } catch (const ProcessEnded&) { // as it must
    }
}

void MainFormTest::store(const std::string& sKey, const std::string& sValue)
{
    fakes.settings->set("ZorvoBrendle", "Settings", sKey, sValue);
}

std::string MainFormTest::stored(const std::string& sKey)
{
    return fakes.settings->get("ZorvoBrendle", "Settings", sKey).value_or("(absent)");
}

} // namespace zorvo
