#include "tests/bus/ServedBus.h"

#include <QElapsedTimer>

namespace zorvo {

using OpenCalls = ServedBus;

const QString kModal = QStringLiteral("Modal");
const QString kFinish = QStringLiteral("FinishModal");

/// Lets the server take up a call that was just sent: it answers in order.
void settle(BusClient& client, const QString& object)
{
    client.call(object, kProbe, QStringLiteral("Nothing"));
}

TEST_F(OpenCalls, StayOpenWhileOthersOfTheSameClientAreServed)
{
    BusClient client(address());
    const QString object = client.create(kProbe);
    const QDBusPendingCall modal = client.start(object, kProbe, kModal);
    EXPECT_EQ(text(client.call(object, kProbe, QStringLiteral("Echo"), {QStringLiteral("still here")})),
              QStringLiteral("still here"));
    EXPECT_FALSE(modal.isFinished());
    client.call(object, kProbe, kFinish);
    EXPECT_EQ(number(replyOf(modal)), 1);
}

TEST_F(OpenCalls, LetOthersBeAnsweredQuickly)
{
    BusClient client(address());
    BusClient other(address());
    const QString object = client.create(kProbe);
    const QDBusPendingCall modal = client.start(object, kProbe, kModal);
    const QString others = other.create(kProbe);
    QElapsedTimer time;
    time.start();
    for (int nCall = 0; nCall < 20; ++nCall)
        other.call(others, kProbe, QStringLiteral("Nothing"));
    EXPECT_LT(time.elapsed(), 20 * 50);
    other.call(others, kProbe, kFinish);
    EXPECT_EQ(replyOf(modal).type(), QDBusMessage::ReplyMessage);
}

TEST_F(OpenCalls, ReturnTheLastOneFirst)
{
    BusClient client(address());
    const QString object = client.create(kProbe);
    const QDBusPendingCall outer = client.start(object, kProbe, kModal);
    const QDBusPendingCall inner = client.start(object, kProbe, kModal);
    settle(client, object);
    client.call(object, kProbe, QStringLiteral("FinishOldestModal"));
    settle(client, object);
    EXPECT_FALSE(outer.isFinished()) << "its frame lies below the inner call's";
    client.call(object, kProbe, kFinish);
    EXPECT_EQ(replyOf(inner).type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(replyOf(outer).type(), QDBusMessage::ReplyMessage);
}

TEST_F(OpenCalls, KeepTheObjectOfAClientThatVanishedAliveToTheirEnd)
{
    BusClient watcher(address());
    const QString watching = watcher.create(kProbe);
    BusClient goes(address());
    const QString object = goes.create(kProbe);
    goes.start(object, kProbe, kModal);
    settle(goes, object);
    goes.vanish();
    // Its path is gone at once, the instance not before its call has returned.
    EXPECT_TRUE(waitUntil([&] {
        return watcher.call(object, kProbe, QStringLiteral("Nothing")).type() == QDBusMessage::ErrorMessage;
    }));
    EXPECT_EQ(number(watcher.call(watching, kProbe, QStringLiteral("Living"))), 2);
    watcher.call(watching, kProbe, kFinish);
    EXPECT_TRUE(
        waitUntil([&] { return number(watcher.call(watching, kProbe, QStringLiteral("Living"))) == 1; }));
}

TEST_F(OpenCalls, KeepTheProcessWhenTheirOnlyClientVanished)
{
    {
        BusClient goes(address());
        const QString object = goes.create(kProbe);
        goes.start(object, kProbe, kModal);
        settle(goes, object);
    }
    BusClient next(address());
    EXPECT_FALSE(waitUntil([] { return !isServed(sharedBus().address()); }, 500))
        << "ended under a running call";
    const QString object = next.create(kProbe);
    EXPECT_EQ(number(next.call(object, kProbe, QStringLiteral("Living"))), 2);
    next.call(object, kProbe, kFinish);
}

TEST_F(OpenCalls, OutliveTheReleaseOfTheirObject)
{
    BusClient client(address());
    const QString object = client.create(kProbe);
    const QDBusPendingCall modal = client.start(object, kProbe, kModal);
    settle(client, object);
    EXPECT_EQ(client.release(object).type(), QDBusMessage::ReplyMessage);
    const QString second = client.create(kProbe);
    client.call(second, kProbe, kFinish);
    EXPECT_EQ(number(replyOf(modal)), 2);
}

} // namespace zorvo
