#include "base/RunTimeError.h"
#include "platform/linux/DBusRemoteObject.h"
#include "platform/linux/byReference.h"
#include "tests/bus/ServedBus.h"

#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <gmock/gmock.h>

namespace zorvo {

using testing::ElementsAre;

BusArgument named(const char* name, const char* type)
{
    return {QLatin1String(name), QLatin1String(type)};
}

BusArgument unnamed(const char* type)
{
    return {QString(), QLatin1String(type)};
}

TEST(ReplyPlaces, GoByTheRepliesNames)
{
    EXPECT_THAT(replyPlaces({QString(),
                             {named("folder", "s"), named("top", "i"), named("left", "i")},
                             {named("profile", "s"), named("left", "i"), named("folder", "s")}}),
                ElementsAre(-1, 2, 0));
    EXPECT_THAT(
        replyPlaces(
            {QString(), {named("sProductType", "s")}, {named("bInstalled", "b"), named("appPath", "s")}}),
        ElementsAre(-1, -1));
}

TEST(ReplyPlaces, GoByTheOrderWithoutNames)
{
    const QList<BusArgument> in{named("folder", "s"), named("top", "i"), named("left", "i")};
    EXPECT_THAT(replyPlaces({QString(), in, {unnamed("s"), unnamed("s"), unnamed("i"), unnamed("i")}}),
                ElementsAre(-1, 0, 1, 2));
    EXPECT_THAT(replyPlaces({QString(), in, {unnamed("s"), unnamed("i"), unnamed("i")}}),
                ElementsAre(0, 1, 2));
    EXPECT_THAT(replyPlaces({QString(), in, {unnamed("b"), unnamed("i")}}), ElementsAre(-1, 1));
    EXPECT_THAT(replyPlaces({QString(), {named("text", "s")}, {unnamed("s")}}), ElementsAre(-1));
    EXPECT_THAT(replyPlaces({QString(), {}, {unnamed("s")}}), ElementsAre(-1));
}

/// A server as others write it: it describes its members without names for the replies, or not at all.
class ForeignServer : public QDBusVirtualObject {
public:
    explicit ForeignServer(QString description)
        : description_(std::move(description))
    {
    }

    QString introspect(const QString& /*path*/) const override { return description_; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override
    {
        const QString member = message.member();
        const QVariantList arguments = message.arguments();
        if (member == QLatin1String("CreateObject"))
            return connection.send(
                message.createReply(QVariant::fromValue(QDBusObjectPath(QStringLiteral("/x")))));
        if (member == QLatin1String("ReleaseObject"))
            return connection.send(message.createReply());
        if (member == QLatin1String("TreeSelectProfileDataForm"))
            return connection.send(
                message.createReply({QStringLiteral("profile"), arguments.at(0).toString() + QLatin1Char('!'),
                                     arguments.at(1).toInt() + 1, arguments.at(2).toInt() + 2}));
        if (message.interface() != QLatin1String("org.freedesktop.DBus.Introspectable"))
            return connection.send(message.createErrorReply(QDBusError::UnknownMethod, member));
        if (!description_.isEmpty())
            return connection.send(message.createReply(description_));
        return connection.send(message.createErrorReply(QDBusError::UnknownInterface, member));
    }

private:
    QString description_;
};

class ForeignServerOnTheBus : public testing::TestWithParam<const char*> {};

TEST_P(ForeignServerOnTheBus, GetsItsMembersCalledAndGivesArgumentsBack)
{
    const QString name = QStringLiteral("foreign");
    {
        ForeignServer server(QString::fromUtf8(GetParam()));
        QDBusConnection connection = QDBusConnection::connectToBus(sharedBus().address(), name);
        ASSERT_TRUE(connection.registerVirtualObject(QStringLiteral("/"), &server, QDBusConnection::SubPath));
        ASSERT_TRUE(connection.registerService(QStringLiteral("com.test.Foreign")));

        const auto object =
            DBusRemoteObject::create(QDBusConnection::sessionBus(), QStringLiteral("com.test.Foreign"),
                                     QStringLiteral("Test.Foreign"));
        std::vector<Value> arguments{std::string("C:\\Files"), std::int32_t{10}, std::int32_t{20}};
        const Value profile = object->invoke("TreeSelectProfileDataForm", arguments);
        EXPECT_EQ(profile, Value(std::string("profile")));
        EXPECT_THAT(arguments, ElementsAre(Value(std::string("C:\\Files!")), Value(std::int32_t{11}),
                                           Value(std::int32_t{22})));
        try {
            object->call("NoSuch");
            ADD_FAILURE() << "no failure";
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), kMemberNotFound);
        }
    }
    QDBusConnection::disconnectFromBus(name);
}

INSTANTIATE_TEST_SUITE_P(Descriptions, ForeignServerOnTheBus,
                         testing::Values("", "<node/>",
                                         "<node><interface name='Test.Foreign'>"
                                         "<method name='TreeSelectProfileDataForm'>"
                                         "<arg type='s' name='folder' direction='in'/>"
                                         "<arg type='i' name='top' direction='in'/>"
                                         "<arg type='i' name='left' direction='in'/>"
                                         "<arg type='s' direction='out'/><arg type='s' direction='out'/>"
                                         "<arg type='i' direction='out'/><arg type='i' direction='out'/>"
                                         "</method></interface></node>"));

} // namespace zorvo
