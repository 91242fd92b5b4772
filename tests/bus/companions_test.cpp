#include "base/RunTimeError.h"
#include "companions/classIds.h"
#include "companions/companionClasses.h"
#include "companions/referenceLocation.h"
#include "companions/registration.h"
#include "platform/linux/DBusClassServer.h"
#include "platform/linux/DBusObjectCreator.h"
#include "tests/bus/ServedBus.h"

#include <QFile>
#include <gmock/gmock.h>

namespace zorvo {

const QString kCompanions = QStringLiteral(COMPANIONS);
const QString kCompanionsName = QStringLiteral("com.zorvo.Companions");

/// The companion program on the shared bus, with the machine's registry of the bus's folder.
class Companions : public testing::Test {
protected:
    void SetUp() override
    {
        RegistryStore registry;
        unregisterCompanions(registry);
        sharedBus().addService(kCompanionsName, kCompanions);
        ASSERT_TRUE(waitUntil([] { return !isServed(sharedBus().address(), kCompanionsName); }));
    }
    void TearDown() override
    {
        sharedBus().removeService(kCompanionsName);
        EXPECT_TRUE(waitUntil([] { return !isServed(sharedBus().address(), kCompanionsName); }));
    }

    static std::string serverOf(const RegisteredClass& registered, const std::string& sValue = {})
    {
        return text(std::string("CLSID\\") + registered.classId + "\\LocalServer32", sValue);
    }
    static std::string text(const std::string& sKey, const std::string& sValue = {})
    {
        RegistryStore registry;
        std::unique_ptr<RegistryKey> key;
        std::string sData;
        RegistryType type{};
        if (registry.openKey(HKEY_CLASSES_ROOT, sKey, kKeyQueryValue, key) != kRegistrySuccess ||
            key->queryValue(sValue, 4096, sData, type) != kRegistrySuccess)
            return "absent";
        return sData.substr(0, sData.find('\0'));
    }

    static void registerAll()
    {
        ASSERT_EQ(run(sharedBus(), kCompanions, {QStringLiteral("--register")}).nExitCode, 0);
    }

    DBusObjectCreator creator_{std::make_shared<RegistryStore>()};
};

TEST_F(Companions, RegisterAllTheirClasses)
{
    registerAll();
    EXPECT_EQ(text("ZorvoTSR.Connect\\CLSID"), kWordAddIn.classId);
    EXPECT_EQ(text("ZorvoTSR.ExcelConnect\\CLSID"), kExcelAddIn.classId);
    EXPECT_EQ(text("Brendle.ActXManager\\CLSID"), kActXManager.classId);
    for (const RegisteredClass& registered : kRegisteredClasses) {
        EXPECT_EQ(serverOf(registered), "com.zorvo.Companions") << registered.description;
        EXPECT_EQ(serverOf(registered, "ServerExecutable"), COMPANIONS) << registered.description;
    }
    EXPECT_STREQ(kReferenceLocation.classId, "{3561154C-DACA-40C5-85E8-A020D429B090}");
}

TEST_F(Companions, UnregisterOnlyWhatIsTheirs)
{
    RegistryStore registry;
    registerAll();
    const std::string sKey = std::string("CLSID\\") + kWordAddIn.classId + "\\LocalServer32";
    registry.apply({{RegistryChange::Kind::setValue,
                     HKEY_CLASSES_ROOT,
                     sKey,
                     {"", RegistryType::string, std::string("com.other.Server") + '\0'}}});
    EXPECT_EQ(run(sharedBus(), kCompanions, {QStringLiteral("--unregister")}).nExitCode, 0);
    EXPECT_EQ(serverOf(kWordAddIn), "com.other.Server");
    EXPECT_EQ(serverOf(kActXManager), "absent");
    EXPECT_EQ(text("Brendle.ActXManager\\CLSID"), "absent");
    registry.apply({{RegistryChange::Kind::deleteKey, HKEY_CLASSES_ROOT, "CLSID", {}}});
}

TEST_F(Companions, RegisterWhatIsMissingOrStaleWhenTheyStart)
{
    RegistryStore registry;
    registerCompanions(registry, "/no/such/program");
    registry.apply({{RegistryChange::Kind::deleteKey, HKEY_CLASSES_ROOT, "Brendle.ActXManager", {}}});
    const std::string sOther = "CLSID\\{77777777-0000-0000-0000-000000000000}";
    registry.apply(
        {{RegistryChange::Kind::setValue,
          HKEY_CLASSES_ROOT,
          "ZorvoTSR.Connect\\CLSID",
          {"", RegistryType::string, std::string("{77777777-0000-0000-0000-000000000000}") + '\0'}},
         {RegistryChange::Kind::setValue,
          HKEY_CLASSES_ROOT,
          sOther + "\\LocalServer32",
          {"", RegistryType::string, std::string("com.other.Server") + '\0'}}});
    registerMissingCompanions(registry, COMPANIONS);
    EXPECT_EQ(text("Brendle.ActXManager\\CLSID"), kActXManager.classId);
    EXPECT_EQ(serverOf(kExcelAddIn, "ServerExecutable"), COMPANIONS);
    EXPECT_EQ(text("ZorvoTSR.Connect\\CLSID"), "{77777777-0000-0000-0000-000000000000}")
        << "a class that has another server keeps it";
    registry.apply({{RegistryChange::Kind::deleteKey, HKEY_CLASSES_ROOT, sOther, {}},
                    {RegistryChange::Kind::deleteKey, HKEY_CLASSES_ROOT, "ZorvoTSR.Connect", {}}});
}

TEST_F(Companions, RegisterThemselvesByBeingRun)
{
    TestProcess companions(sharedBus(), kCompanions);
    ASSERT_TRUE(waitUntil([] { return isServed(sharedBus().address(), kCompanionsName); }));
    EXPECT_EQ(serverOf(kActXManager), "com.zorvo.Companions");
}

TEST_F(Companions, TellWrongUsage)
{
    const Outcome outcome = run(sharedBus(), kCompanions, {QStringLiteral("--nonsense")});
    EXPECT_EQ(outcome.nExitCode, 2);
    EXPECT_THAT(outcome.sErr, testing::StartsWith("usage: zorvo-companions"));
    EXPECT_EQ(outcome.sOut, "");
}

TEST_F(Companions, FrameworkObjectIsCreatedAndThenAttachedTo)
{
    registerAll();
    EXPECT_THROW(creator_.attach("Brendle.ActXManager"), RunTimeError);
    EXPECT_FALSE(isServed(sharedBus().address(), kCompanionsName));
    LateBoundPtr created = creator_.createByProgId("Brendle.ActXManager");
    LateBoundPtr attached = creator_.attach("Brendle.ActXManager");
    // It lives as long as one of them holds it.
    created.reset();
    EXPECT_NE(creator_.attach("Brendle.ActXManager"), nullptr);
    attached.reset();
    EXPECT_TRUE(waitUntil([&] {
        try {
            creator_.attach("Brendle.ActXManager");
            return false;
        } catch (const RunTimeError& error) {
            return error.number() == kCannotCreateObject;
        }
    }));
}

TEST_F(Companions, FrameworkObjectIsOneForAllClients)
{
    registerAll();
    BusClient first(sharedBus().address(), kCompanionsName);
    BusClient second(sharedBus().address(), kCompanionsName);
    const QString progId = QStringLiteral("Brendle.ActXManager");
    const QString created = first.create(progId);
    EXPECT_EQ(second.service(QStringLiteral("GetObject"), {progId}).type(), QDBusMessage::ReplyMessage);
    first.vanish();
    // The second client's hold keeps it.
    BusClient third(sharedBus().address(), kCompanionsName);
    EXPECT_EQ(third.service(QStringLiteral("GetObject"), {progId}).type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(third.call(created, progId, QStringLiteral("Nothing")).type(), QDBusMessage::ErrorMessage);
}

TEST_F(Companions, AddInConnectionsAreNotAttachedTo)
{
    registerAll();
    const LateBoundPtr created = creator_.createByProgId("ZorvoTSR.Connect");
    EXPECT_THROW(creator_.attach("ZorvoTSR.Connect"), RunTimeError);
}

TEST_F(Companions, AddInConnectionsTakeTheCompany)
{
    registerAll();
    for (const char* progId : {"ZorvoTSR.Connect", "ZorvoTSR.ExcelConnect"}) {
        const LateBoundPtr connection = creator_.createByProgId(progId);
        EXPECT_NO_THROW(connection->call("SetCompanyID", {std::string("OTR")})) << progId;
    }
}

TEST_F(Companions, AddInConnectionKeepsTheCompany)
{
    const ServedClass served = companionClasses({}).front();
    const AutomationObjectPtr instance = served.automation.create();
    std::vector<Value> arguments{std::string("OTR")};
    served.automation.operations.front().call(*instance, arguments);
    EXPECT_EQ(dynamic_cast<AddInConnection&>(*instance).companyID(), "OTR");
}

TEST_F(Companions, TheProfileFormTakesFolderAndPlaceAndGivesThemBack)
{
    ProfileQuestion asked;
    const auto answer = [&](const ProfileQuestion& question) {
        asked = question;
        return ProfileAnswer{"ClientName=A\n", question.sFolder + "\\", 30, 40};
    };
    DBusClassServer server(QDBusConnection::sessionBus(), kCompanionsName,
                           companionClasses({.chooseLocation = {}, .askProfile = answer}));
    ASSERT_TRUE(server.start());
    RegistryStore registry;
    registerCompanions(registry, COMPANIONS);
    std::vector<Value> arguments{std::string("C:\\Out"), std::int32_t{150}, std::int32_t{300}};
    const Value profile =
        creator_.createByProgId("ZorvoTSR.Connect")->invoke("TreeSelectProfileDataForm", arguments);
    EXPECT_EQ(asked.sFolder, "C:\\Out");
    EXPECT_EQ(asked.nTop, 150);
    EXPECT_EQ(asked.nLeft, 300);
    EXPECT_EQ(std::get<std::string>(profile), "ClientName=A\n");
    EXPECT_EQ(arguments, (std::vector<Value>{std::string("C:\\Out\\"), std::int32_t{30}, std::int32_t{40}}));
}

TEST_F(Companions, TheProfileFormHasTheSignatureThatClientsRelyOn)
{
    registerAll();
    BusClient client(sharedBus().address(), kCompanionsName);
    const QString object = client.create(QStringLiteral("ZorvoTSR.Connect"));
    const QDBusMessage wrong =
        client.call(object, QStringLiteral("ZorvoTSR.Connect"), QStringLiteral("TreeSelectProfileDataForm"));
    EXPECT_EQ(wrong.type(), QDBusMessage::ErrorMessage);
    const auto described = interfaceFromXml(client.introspect(object), QStringLiteral("ZorvoTSR.Connect"));
    ASSERT_TRUE(described);
    const QList<BusMember>& members = described->members;
    const auto form = std::find_if(members.begin(), members.end(), [](const BusMember& member) {
        return member.name == QLatin1String("TreeSelectProfileDataForm");
    });
    ASSERT_NE(form, members.end());
    EXPECT_EQ(form->inSignature(), QStringLiteral("sii"));
    QString out;
    for (const BusArgument& argument : form->out)
        out += argument.type;
    EXPECT_EQ(out, QStringLiteral("ssii"));
}

TEST_F(Companions, AreKnownToTheOfficeByTheirLibrary)
{
    registerAll();
    for (const RegisteredClass& registered : {kWordAddIn, kExcelAddIn}) {
        const std::string sLibrary = text(std::string("CLSID\\") + registered.classId + "\\InprocServer32");
        EXPECT_TRUE(QFile::exists(QString::fromStdString(sLibrary))) << sLibrary;
    }
    EXPECT_EQ(text(std::string("CLSID\\") + kActXManager.classId + "\\InprocServer32"), "absent");
}

TEST_F(Companions, ReferenceLocationIsAskedForByDispatchId)
{
    int nAsked = 0;
    DBusClassServer server(QDBusConnection::sessionBus(), kCompanionsName,
                           companionClasses({.chooseLocation = [&] { ++nAsked; }, .askProfile = {}}),
                           DBusClassServer::Attaching::attachable);
    ASSERT_TRUE(server.start());
    RegistryStore registry;
    registerCompanions(registry, COMPANIONS);
    const LateBoundPtr location = creator_.createByClassId(kReferenceLocation.classId);
    std::vector<Value> none;
    location->invokeById(1, none);
    EXPECT_EQ(nAsked, 1);
    EXPECT_THROW(location->invokeById(2, none), RunTimeError);
    EXPECT_THROW(location->call("Anything"), RunTimeError);
}

TEST_F(Companions, ReferenceLocationIsKept)
{
    RegistryStore registry;
    storeReferenceLocation(registry, "C:\\Référence");
    EXPECT_EQ(storedReferenceLocation(registry), "C:\\Référence");
}

} // namespace zorvo
