#include "shell/automationClasses.h"

#include "base/RunTimeError.h"
#include "base/XmlDocument.h"
#include "base/sessionState.h"
#include "shell/shellState.h"
#include "tests/fakes/RecordingObjectService.h"
#include "tests/fakes/installFakePlatform.h"
#include "tests/shell/RecordingForms.h"

#include <gmock/gmock.h>

namespace zorvo {
namespace {

using testing::ElementsAre;

constexpr const char* kStatus = "ZorvoTSelector.clsZorvoProductStatus";

std::vector<std::string> operationNames(const AutomationClass& automationClass)
{
    std::vector<std::string> names;
    for (const AutomationOperation& operation : automationClass.operations)
        names.push_back(operation.sName);
    return names;
}

class AutomationClassesTest : public testing::Test {
protected:
    AutomationClassesTest()
    {
        sessionState() = SessionState();
        shellState() = ShellState();
        shellState().forms = &forms;
        platform().service = service;
        service->start(automationClasses(), [] { return false; });
        fakes.files->addFile("C:\\Zorvo\\TreeData\\TreeOrder.xml", "<ZorvoTree Version=\"1\"/>");
    }
    ~AutomationClassesTest() override { shellState() = ShellState(); }

    const FakePlatform fakes;
    std::shared_ptr<RecordingObjectService> service = std::make_shared<RecordingObjectService>();
    RecordingForms forms;
};

TEST_F(AutomationClassesTest, StandInTypeLibraryOrder)
{
    std::vector<std::string> progIds;
    for (const AutomationClass& automationClass : service->classes)
        progIds.push_back(automationClass.sProgId);
    EXPECT_THAT(progIds, ElementsAre("ZorvoTSelector.ZorvoTreeSelector", "ZorvoTSelector.clsAbout",
                                     "ZorvoTSelector.clsHelpDisplay", "ZorvoTSelector.clsSWDSearch",
                                     "ZorvoTSelector.clsZorvoProductStatus"));
}

TEST_F(AutomationClassesTest, HaveTheirOperationsInSlotOrder)
{
    EXPECT_THAT(operationNames(service->classes[0]),
                ElementsAre("ShowTreeDirectly", "ShowTreeDFS", "ShowEngagementListDFS", "searchSWD",
                            "show_aboutDialog", "QBK_Help", "makeTopWindow", "ShowTreeForCompany"));
    EXPECT_THAT(operationNames(service->classes[1]), ElementsAre("show_QBK_About"));
    EXPECT_THAT(operationNames(service->classes[2]), ElementsAre("show_QBK_Help"));
    EXPECT_THAT(operationNames(service->classes[3]), ElementsAre("SWD_RunSearch"));
    EXPECT_THAT(operationNames(service->classes[4]),
                ElementsAre("sGetProductStatusXML", "GetQBKInfo", "sGetTreeOrderXML", "nGetNestedKeyValues"));
}

TEST_F(AutomationClassesTest, TheForwardersReachTheirForms)
{
    service->call("ZorvoTSelector.clsAbout", "show_QBK_About");
    service->call("ZorvoTSelector.clsHelpDisplay", "show_QBK_Help");
    service->call("ZorvoTSelector.clsSWDSearch", "SWD_RunSearch");
    EXPECT_THAT(forms.journal, ElementsAre("about", "help", "search"));
    EXPECT_EQ(service->nEnded, 0) << "the forwarders never touch the life of the process";
}

TEST_F(AutomationClassesTest, TheStatusFlagsTakeAutomationBooleansNumbersAndNothing)
{
    fakes.files->addFile(
        "C:\\Zorvo\\TreeData\\TreeOrder.xml",
        "<ZorvoTree Version='1'><ProductTreeGroup TreeTitle='' TreeTitleShort='' IconLarge='' "
        "IconSmall=''><Acronymn numProdClassID='1' Name='A'>AUD</Acronymn></ProductTreeGroup>"
        "</ZorvoTree>");
    fakes.files->addFile("C:\\Zorvo\\TreeData\\HTML\\AUD.htm");
    for (const std::string sGroup : {"Tessora", "Quillbook"})
        fakes.registry->setText(HKEY_LOCAL_MACHINE,
                                "Software\\Zorvo\\" + sGroup + "\\AUD\\2006\\InstallDefaults", "AppPath2",
                                sGroup);
    const auto paths = [this](Value bNoctaOnly, Value bAllProducts) {
        std::vector<Value> arguments{std::move(bNoctaOnly), std::move(bAllProducts)};
        XmlDocument status;
        status.loadXML(std::get<std::string>(service->call(kStatus, "sGetProductStatusXML", arguments)));
        std::string sPaths;
        for (const XmlNode& path : status.selectNodes("//TemplatePath"))
            sPaths += path.text() + ' ';
        return sPaths;
    };
    for (const Value& missing : {Value(), Value(false), Value(std::int16_t(0))})
        EXPECT_EQ(paths(missing, missing), "Tessora Quillbook ");
    for (const Value& set : {Value(true), Value(std::int16_t(-1)), Value(std::int32_t(1))})
        EXPECT_EQ(paths(set, Value()), "Tessora ");
    for (const Value& all : {Value(true), Value(std::int16_t(-1)), Value(std::int32_t(-1))})
        EXPECT_EQ(paths(Value(), all), "N/A ");
    EXPECT_EQ(paths(Value(), std::int16_t(1)), "Tessora Quillbook ")
        << "only the automation's own true counts";
}

TEST_F(AutomationClassesTest, AStatusFlagPast16BitsIsAnOverflowAndATextATypeMismatch)
{
    std::vector<Value> tooLarge{Value(std::int32_t(40000)), Value()};
    EXPECT_THROW(service->call(kStatus, "sGetProductStatusXML", tooLarge), RunTimeError);
    std::vector<Value> text{Value(std::string("yes")), Value()};
    EXPECT_THROW(service->call(kStatus, "sGetProductStatusXML", text), RunTimeError);
}

TEST_F(AutomationClassesTest, GetQbkInfoGivesBothAnswers)
{
    fakes.registry->setText(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\Tessora\\AUD\\2006\\InstallDefaults",
                            "AppPath2", " C:\\T\\AUD ");
    std::vector<Value> arguments{Value(std::string("AUD")),
                                 Value(std::string("Tessora")),
                                 Value(std::string("2006")),
                                 Value(std::uint32_t(HKEY_LOCAL_MACHINE)),
                                 Value(),
                                 Value()};
    service->call(kStatus, "GetQBKInfo", arguments);
    EXPECT_TRUE(std::get<bool>(arguments[4]));
    EXPECT_EQ(std::get<std::string>(arguments[5]), "C:\\T\\AUD");
}

TEST_F(AutomationClassesTest, NestedKeyValuesGoOnWhereTheCallersArrayStops)
{
    fakes.registry->setText(HKEY_LOCAL_MACHINE, "SOFTWARE\\Zorvo\\Quillbook\\A\\InstallDefaults", "AppPath2",
                            "C:\\A");
    std::vector<Value> arguments{Value(std::string("HKEY_LOCAL_MACHINE\\SOFTWARE\\Zorvo\\Quillbook")),
                                 Value(std::string("InstallDefaults")), Value(std::string("AppPath2")),
                                 Value(std::vector<std::string>{"", "first"}), Value(std::int32_t(1))};
    EXPECT_EQ(std::get<std::int32_t>(service->call(kStatus, "nGetNestedKeyValues", arguments)), 259);
    EXPECT_THAT(std::get<std::vector<std::string>>(arguments[3]), ElementsAre("", "first", "C:\\A"));
    EXPECT_EQ(std::get<std::int32_t>(arguments[4]), 2);
}

TEST_F(AutomationClassesTest, TheTreeOrderFileIsNamed)
{
    std::vector<Value> arguments;
    EXPECT_EQ(std::get<std::string>(service->call(kStatus, "sGetTreeOrderXML", arguments)),
              "C:\\Zorvo\\TreeData\\TreeOrder.xml");
}

} // namespace
} // namespace zorvo
