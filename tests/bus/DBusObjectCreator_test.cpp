#include "base/RunTimeError.h"
#include "platform/linux/DBusClassServer.h"
#include "platform/linux/DBusObjectCreator.h"
#include "tests/bus/ServedBus.h"
#include "tests/fakes/FakeRegistry.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <gmock/gmock.h>

namespace zorvo {

using testing::ElementsAre;

/// The registry says that the test server serves `Test.Probe`.
class ObjectCreatorOnTheBus : public ServedBus {
protected:
    void SetUp() override
    {
        ServedBus::SetUp();
        enter("Test.Probe", "{11111111-0000-0000-0000-000000000000}", "com.zorvo.TSelector");
    }

    void enter(const std::string& sProgId, const std::string& sClassId, const std::string& sBusName)
    {
        registry_->setText(HKEY_CLASSES_ROOT, sProgId + "\\CLSID", "", sClassId);
        registry_->setText(HKEY_CLASSES_ROOT, "CLSID\\" + sClassId + "\\LocalServer32", "", sBusName);
    }

    /// The number of the failure that the work throws; 0 when it throws none.
    template <typename Work>
    static int failure(Work work)
    {
        try {
            work();
            return 0;
        } catch (const RunTimeError& error) {
            return error.number();
        }
    }

    std::shared_ptr<FakeRegistry> registry_ = std::make_shared<FakeRegistry>();
    DBusObjectCreator creator_{registry_};
};

TEST_F(ObjectCreatorOnTheBus, StartsTheRegisteredServerAndCallsByName)
{
    const LateBoundPtr object = creator_.createByProgId("Test.Probe");
    EXPECT_EQ(std::get<std::string>(object->call("Echo", {std::string("Grüße")})), "Grüße");
}

TEST_F(ObjectCreatorOnTheBus, FindsMembersWithoutRegardToCase)
{
    EXPECT_EQ(std::get<std::string>(creator_.createByProgId("Test.Probe")->call("ECHO", {std::string("x")})),
              "x");
}

TEST_F(ObjectCreatorOnTheBus, FindsTheClassWithoutRegardToCase)
{
    const LateBoundPtr object = creator_.createByProgId("test.PROBE");
    EXPECT_EQ(std::get<std::string>(object->call("Echo", {std::string("x")})), "x");
}

TEST_F(ObjectCreatorOnTheBus, BringsByReferenceArgumentsBackInOrder)
{
    std::vector<Value> arguments{std::string("new"), std::vector<std::string>{"", "old"}, std::int32_t{1}};
    const Value result = creator_.createByProgId("Test.Probe")->invoke("Walk", arguments);
    EXPECT_EQ(std::get<std::int32_t>(result), 259);
    EXPECT_EQ(std::get<std::string>(arguments[0]), "new");
    EXPECT_THAT(std::get<std::vector<std::string>>(arguments[1]), ElementsAre("", "old", "new"));
    EXPECT_EQ(std::get<std::int32_t>(arguments[2]), 2);
}

TEST_F(ObjectCreatorOnTheBus, ConvertsArgumentsToTheMembersTypes)
{
    const LateBoundPtr object = creator_.createByProgId("Test.Probe");
    EXPECT_EQ(std::get<std::string>(object->call("Echo", {std::int16_t{7}})), "7");
    EXPECT_EQ(failure([&] { object->call("Fail", {std::string("53"), std::string("text")}); }), 53);
    EXPECT_EQ(std::get<std::string>(object->call("Kinds", {true, {}})), "b True, missing");
}

TEST_F(ObjectCreatorOnTheBus, RefusesArgumentsThatAMemberDoesNotTake)
{
    const LateBoundPtr object = creator_.createByProgId("Test.Probe");
    EXPECT_EQ(failure([&] { object->call("Echo"); }), kTypeMismatch);
    EXPECT_EQ(failure([&] {
                  object->call("Fail", {std::string("no number"), std::string()});
              }),
              kTypeMismatch);
    EXPECT_EQ(failure([&] { object->call("Fail", {1e12, std::string()}); }), kOverflow);
}

TEST_F(ObjectCreatorOnTheBus, KnowsAMemberThatIsNotThere)
{
    const LateBoundPtr object = creator_.createByProgId("Test.Probe");
    EXPECT_EQ(failure([&] { object->call("NoSuch"); }), kMemberNotFound);
    EXPECT_EQ(failure([&] {
                  std::vector<Value> none;
                  object->invokeById(1, none);
              }),
              kMemberNotFound);
}

TEST_F(ObjectCreatorOnTheBus, PassesNumberAndTextOfAFailureOn)
{
    try {
        creator_.createByProgId("Test.Probe")->call("Fail", {std::int32_t{-77}, std::string("a - b\nc")});
        FAIL() << "no failure";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), -77);
        EXPECT_EQ(error.description(), "a - b\nc");
    }
}

TEST_F(ObjectCreatorOnTheBus, CannotCreateWhatNobodyRegistered)
{
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(failure([&] { creator_.createByProgId("No.Such"); }), kCannotCreateObject);
    EXPECT_EQ(failure([&] { creator_.createByProgId(""); }), kCannotCreateObject);
    EXPECT_EQ(failure([&] { creator_.createByClassId("{99999999-0000-0000-0000-000000000000}"); }),
              kCannotCreateObject);
    enter("Test.NoServer", "{22222222-0000-0000-0000-000000000000}", "com.zorvo.NoServer");
    EXPECT_EQ(failure([&] { creator_.createByProgId("Test.NoServer"); }), kCannotCreateObject);
    enter("Test.Malformed", "{33333333-0000-0000-0000-000000000000}", "no bus name at all");
    EXPECT_EQ(failure([&] { creator_.createByProgId("Test.Malformed"); }), kCannotCreateObject);
    EXPECT_LT(time.elapsed(), 20000); // no time-out of the bus
}

TEST_F(ObjectCreatorOnTheBus, CannotCreateWhenTheServerDoesNotComeUp)
{
    sharedBus().addService(QStringLiteral("com.zorvo.Broken"), QStringLiteral("/bin/false"));
    enter("Test.Broken", "{44444444-0000-0000-0000-000000000000}", "com.zorvo.Broken");
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(failure([&] { creator_.createByProgId("Test.Broken"); }), kCannotCreateObject);
    EXPECT_LT(time.elapsed(), 20000);
    sharedBus().removeService(QStringLiteral("com.zorvo.Broken"));
}

TEST_F(ObjectCreatorOnTheBus, CannotCreateAClassThatTheServerDoesNotKnow)
{
    enter("Test.Unknown", "{55555555-0000-0000-0000-000000000000}", "com.zorvo.TSelector");
    EXPECT_EQ(failure([&] { creator_.createByProgId("Test.Unknown"); }), kCannotCreateObject);
    enter("Test.Refusing", "{66666666-0000-0000-0000-000000000000}", "com.zorvo.TSelector");
    EXPECT_EQ(failure([&] { creator_.createByProgId("Test.Refusing"); }), 70) << "the maker's own failure";
}

TEST_F(ObjectCreatorOnTheBus, StartsAServerThatTheBusCannotStart)
{
    sharedBus().removeService(QStringLiteral("com.zorvo.TSelector"));
    EXPECT_EQ(failure([&] { creator_.createByProgId("Test.Probe"); }), kCannotCreateObject);
    const std::string sKey = "CLSID\\{11111111-0000-0000-0000-000000000000}\\LocalServer32";
    registry_->setText(HKEY_CLASSES_ROOT, sKey, "ServerExecutable", TEST_SERVER);
    EXPECT_EQ(std::get<std::string>(creator_.createByProgId("Test.Probe")->call("Echo", {std::string("up")})),
              "up");
}

TEST_F(ObjectCreatorOnTheBus, NoticesAServerProgramThatGivesUp)
{
    sharedBus().removeService(QStringLiteral("com.zorvo.TSelector"));
    const std::string sKey = "CLSID\\{11111111-0000-0000-0000-000000000000}\\LocalServer32";
    QElapsedTimer time;
    time.start();
    for (const char* program : {"/bin/true", "/no/such/program", "/etc/passwd"}) {
        registry_->setText(HKEY_CLASSES_ROOT, sKey, "ServerExecutable", program);
        EXPECT_EQ(failure([&] { creator_.createByProgId("Test.Probe"); }), kCannotCreateObject) << program;
    }
    EXPECT_LT(time.elapsed(), 3000);
}

TEST_F(ObjectCreatorOnTheBus, ReleasesTheObjectWithItsHandle)
{
    BusClient watcher(address());
    const QString watching = watcher.create(kProbe);
    LateBoundPtr object = creator_.createByProgId("Test.Probe");
    EXPECT_EQ(number(watcher.call(watching, kProbe, QStringLiteral("Living"))), 2);
    object.reset();
    EXPECT_TRUE(
        waitUntil([&] { return number(watcher.call(watching, kProbe, QStringLiteral("Living"))) == 1; }));
}

TEST_F(ObjectCreatorOnTheBus, ServesTimersWhileACallIsOpen)
{
    const LateBoundPtr object = creator_.createByProgId("Test.Probe");
    BusClient other(address());
    const QString finisher = other.create(kProbe);
    bool bTimerRan = false;
    QTimer::singleShot(100, [&] {
        bTimerRan = true;
        other.start(finisher, kProbe, QStringLiteral("FinishModal"));
    });
    object->call("Modal");
    EXPECT_TRUE(bTimerRan);
}

/// A class of the test program's own, whose operation the server calls back while it is called itself.
TEST_F(ObjectCreatorOnTheBus, ServesOwnObjectsWhileACallIsOpen)
{
    int nServed = 0;
    ServedClass own;
    own.automation = {"Test.Own",
                      {{"Touch",
                        {},
                        [&nServed](AutomationObject&, std::vector<Value>&) -> Value {
                            ++nServed;
                            return {};
                        }}},
                      [] { return std::make_shared<AutomationObject>(); }};
    DBusClassServer server(QDBusConnection::sessionBus(), QStringLiteral("com.zorvo.Own"), {own});
    ASSERT_TRUE(server.start());

    const LateBoundPtr object = creator_.createByProgId("Test.Probe");
    BusClient other(address(), QStringLiteral("com.zorvo.Own"));
    BusClient finisher(address());
    const QString probe = finisher.create(kProbe);
    QTimer::singleShot(50, [&] {
        const QString path = other.create(QStringLiteral("Test.Own"));
        other.call(path, QStringLiteral("Test.Own"), QStringLiteral("Touch"));
        finisher.start(probe, kProbe, QStringLiteral("FinishModal"));
    });
    object->call("Modal");
    EXPECT_EQ(nServed, 1);
}

TEST_F(ObjectCreatorOnTheBus, FailsAnOpenCallWhenTheServerVanishes)
{
    const LateBoundPtr object = creator_.createByProgId("Test.Probe");
    EXPECT_EQ(failure([&] { object->call("Crash"); }), 462);
    EXPECT_EQ(failure([&] { object->call("Nothing"); }), 462) << "and doesn't start another one";
    EXPECT_FALSE(isServed(address()));
}

TEST_F(ObjectCreatorOnTheBus, EndsAWaitWhenTheEventLoopEnds)
{
    const LateBoundPtr object = creator_.createByProgId("Test.Probe");
    int nFailure = 0;
    QTimer::singleShot(0, [&] {
        QTimer::singleShot(50, [] { QCoreApplication::exit(0); });
        nFailure = failure([&] { object->call("Modal"); });
    });
    QCoreApplication::exec();
    EXPECT_EQ(nFailure, 462);
    object->call("FinishModal");
}

TEST_F(ObjectCreatorOnTheBus, NeverStartsAServerToAttach)
{
    EXPECT_EQ(failure([&] { creator_.attach("Test.Probe"); }), kCannotCreateObject);
    EXPECT_FALSE(isServed(address()));
    EXPECT_EQ(failure([&] { creator_.attach("No.Such"); }), kCannotCreateObject);
}

TEST_F(ObjectCreatorOnTheBus, CannotAttachWhereTheServerHasNoSuchService)
{
    const LateBoundPtr object = creator_.createByProgId("Test.Probe");
    EXPECT_EQ(failure([&] { creator_.attach("Test.Probe"); }), kCannotCreateObject);
}

} // namespace zorvo
