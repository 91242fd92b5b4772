#include "tests/bus/ServedBus.h"

#include <QDBusObjectPath>
#include <QElapsedTimer>

namespace zorvo {

using EndOfProcess = ServedBus;

const QString kEnd = QStringLiteral("End");
const QVariantList kEndArguments{QStringLiteral("text"), QStringList({QString(), QStringLiteral("kept")})};

bool ends(int nMilliseconds = 4000)
{
    return waitUntil([] { return !isServed(sharedBus().address()); }, nMilliseconds);
}

TEST_F(EndOfProcess, ComesWithTheReleaseOfTheLastObject)
{
    BusClient client(address());
    const QString first = client.create(kProbe);
    const QString second = client.create(kProbe);
    client.release(first);
    EXPECT_FALSE(ends(300));
    client.release(second);
    EXPECT_TRUE(ends());
}

TEST_F(EndOfProcess, ComesWhenTheLastClientVanishes)
{
    {
        BusClient client(address());
        client.create(kProbe);
    }
    EXPECT_TRUE(ends());
}

TEST_F(EndOfProcess, WaitsForALoadedForm)
{
    {
        BusClient client(address());
        const QString object = client.create(kProbe);
        client.call(object, kProbe, QStringLiteral("LoadForm"));
        client.call(object, kProbe, QStringLiteral("UnloadFormAfter"), {900});
    }
    EXPECT_FALSE(ends(500));
    EXPECT_TRUE(ends());
}

TEST_F(EndOfProcess, LosesNoneOfManyQuickClientsInARow)
{
    int nServed = 0;
    for (int nClient = 0; nClient < 150; ++nClient) {
        BusClient client(address());
        const QString object = client.create(kProbe);
        const QString answer =
            text(client.call(object, kProbe, QStringLiteral("Echo"), {QString::number(nClient)}));
        nServed += answer == QString::number(nClient) ? 1 : 0;
        if (nClient % 2 == 0)
            client.release(object);
    }
    EXPECT_EQ(nServed, 150);
}

TEST_F(EndOfProcess, LosesNoneOfManyClientsThatOverlap)
{
    int nServed = 0;
    auto before = std::make_unique<BusClient>(address());
    QString object = before->create(kProbe);
    for (int nClient = 0; nClient < 150; ++nClient) {
        auto client = std::make_unique<BusClient>(address());
        // The release of one and the request of the next are under way together.
        before->start(kRoot, QStringLiteral("com.zorvo.ObjectService"), QStringLiteral("ReleaseObject"),
                      {QVariant::fromValue(QDBusObjectPath(object))});
        object = client->create(kProbe);
        nServed +=
            client->call(object, kProbe, QStringLiteral("Nothing")).type() == QDBusMessage::ReplyMessage;
        before = std::move(client);
    }
    EXPECT_EQ(nServed, 150);
}

TEST_F(EndOfProcess, ByHandWaitsForAFirstClient)
{
    sharedBus().removeService(QStringLiteral("com.zorvo.TSelector"));
    QElapsedTimer time;
    time.start();
    TestProcess server(sharedBus(), kTestServer);
    EXPECT_EQ(server.wait().nExitCode, 0);
    EXPECT_GT(time.elapsed(), 4000);
    EXPECT_LT(time.elapsed(), 9000);
}

TEST_F(EndOfProcess, ByHandServesAClientThatComesInTime)
{
    sharedBus().removeService(QStringLiteral("com.zorvo.TSelector"));
    TestProcess server(sharedBus(), kTestServer);
    ASSERT_TRUE(waitUntil([] { return isServed(sharedBus().address()); }));
    BusClient client(address());
    const QString object = client.create(kProbe);
    EXPECT_EQ(client.call(object, kProbe, QStringLiteral("Nothing")).type(), QDBusMessage::ReplyMessage);
    client.release(object);
    EXPECT_EQ(server.wait(3000).nExitCode, 0) << "a server that had its client doesn't wait for another";
}

TEST_F(EndOfProcess, OfASecondServerComesAtOnce)
{
    BusClient client(address());
    const QString object = client.create(kProbe);
    EXPECT_EQ(run(sharedBus(), kTestServer).nExitCode, 3);
    EXPECT_EQ(number(client.call(object, kProbe, QStringLiteral("Living"))), 1);
}

TEST_F(EndOfProcess, OfOneOfTwoStartedTogetherLeavesTheOther)
{
    sharedBus().removeService(QStringLiteral("com.zorvo.TSelector"));
    TestProcess first(sharedBus(), kTestServer);
    TestProcess second(sharedBus(), kTestServer);
    ASSERT_TRUE(waitUntil([&] { return !first.isRunning() || !second.isRunning(); }, 3000));
    EXPECT_EQ((first.isRunning() ? second : first).wait().nExitCode, 3);
    BusClient client(address());
    EXPECT_FALSE(client.create(kProbe).isEmpty());
}

TEST_F(EndOfProcess, InsideACallStillAnswersIt)
{
    BusClient client(address());
    const QDBusMessage reply = client.call(client.create(kProbe), kProbe, kEnd, kEndArguments);
    ASSERT_EQ(reply.type(), QDBusMessage::ReplyMessage) << reply.errorMessage().toStdString();
    EXPECT_EQ(reply.signature(), QStringLiteral("sas"));
    EXPECT_EQ(text(reply), QString());
    EXPECT_EQ(reply.arguments().value(1).toStringList(), QStringList({QString(), QStringLiteral("kept")}));
    EXPECT_TRUE(ends());
}

TEST_F(EndOfProcess, InsideACallAnswersAllOpenOnes)
{
    BusClient first(address());
    BusClient second(address());
    const QString object = first.create(kProbe);
    const QDBusPendingCall outer = first.start(object, kProbe, QStringLiteral("Modal"));
    const QDBusPendingCall inner = second.start(second.create(kProbe), kProbe, QStringLiteral("Modal"));
    EXPECT_EQ(first.call(object, kProbe, kEnd, kEndArguments).type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(replyOf(outer).type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(replyOf(inner).type(), QDBusMessage::ReplyMessage);
}

TEST_F(EndOfProcess, InsideACallLeavesTheNextClientToTheNextProcess)
{
    for (int nRound = 0; nRound < 30; ++nRound) {
        BusClient client(address());
        const QDBusMessage reply = client.call(client.create(kProbe), kProbe, kEnd, kEndArguments);
        ASSERT_EQ(reply.type(), QDBusMessage::ReplyMessage) << reply.errorMessage().toStdString();
    }
}

TEST_F(EndOfProcess, ByACrashIsAnErrorForItsClient)
{
    BusClient client(address());
    EXPECT_EQ(client.call(client.create(kProbe), kProbe, QStringLiteral("Crash")).type(),
              QDBusMessage::ErrorMessage);
}

TEST_F(EndOfProcess, ComesWithTheEndOfTheBus)
{
    PrivateBus bus;
    TestProcess idle(bus, kTestServer);
    ASSERT_TRUE(waitUntil([&] { return isServed(bus.address()); }));
    BusClient client(bus.address());
    const QString object = client.create(kProbe);
    client.start(object, kProbe, QStringLiteral("Modal"));
    client.call(object, kProbe, QStringLiteral("Nothing"));
    bus.kill();
    EXPECT_EQ(idle.wait(6000).nExitCode, 0);
}

TEST_F(EndOfProcess, ComesAtOnceWithoutABus)
{
    PrivateBus bus;
    bus.kill();
    EXPECT_EQ(run(bus, kTestServer).nExitCode, 3);
}

} // namespace zorvo
