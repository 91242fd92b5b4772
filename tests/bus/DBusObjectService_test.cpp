#include "tests/bus/ServedBus.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <gmock/gmock.h>

namespace zorvo {

using ObjectServiceOnTheBus = ServedBus;

TEST_F(ObjectServiceOnTheBus, ListsItsClassesInTypeLibraryOrder)
{
    BusClient client(address());
    const QDBusMessage reply =
        client.call(kRoot, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
                    {QStringLiteral("com.zorvo.ObjectService"), QStringLiteral("Classes")});
    EXPECT_EQ(reply.arguments().value(0).value<QDBusVariant>().variant().toStringList(),
              QStringList({kProbe, QStringLiteral("Test.Refusing"),
                           QStringLiteral("ZorvoTSelector.ZorvoTreeSelector"),
                           QStringLiteral("ZorvoTSelector.clsZorvoProductStatus")}));
}

TEST_F(ObjectServiceOnTheBus, ListsItsClassesAmongAllProperties)
{
    BusClient client(address());
    const QDBusMessage reply =
        client.call(kRoot, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("GetAll"),
                    {QStringLiteral("com.zorvo.ObjectService")});
    ASSERT_EQ(reply.signature(), QStringLiteral("a{sv}"));
    const auto all = qdbus_cast<QVariantMap>(reply.arguments().value(0));
    EXPECT_EQ(all.value(QStringLiteral("Classes")).toStringList().value(0), kProbe);
}

TEST_F(ObjectServiceOnTheBus, DescribesTheServiceAndTheOperationsInSlotOrder)
{
    BusClient client(address());
    EXPECT_THAT(client.introspect(kRoot).toStdString(),
                testing::AllOf(testing::HasSubstr("<interface name=\"com.zorvo.ObjectService\">"),
                               testing::HasSubstr("<method name=\"CreateObject\">"),
                               testing::HasSubstr("<property name=\"Classes\" type=\"as\" access=\"read\"/>"),
                               testing::Not(testing::HasSubstr("GetObject"))));
    const QString xml = client.introspect(client.create(kProbe));
    EXPECT_THAT(xml.toStdString(), testing::HasSubstr("<interface name=\"Test.Probe\">"));
    EXPECT_LT(xml.indexOf(QStringLiteral("\"Echo\"")), xml.indexOf(QStringLiteral("\"Nothing\"")));
    // The result ahead of the by-reference arguments, an argument that only comes back not among those going
    // in.
    EXPECT_THAT(xml.simplified().toStdString(),
                testing::HasSubstr("<method name=\"Walk\"> <arg name=\"sText\" type=\"s\" direction=\"in\"/> "
                                   "<arg name=\"sValues\" type=\"as\" direction=\"in\"/> "
                                   "<arg name=\"nCount\" type=\"i\" direction=\"in\"/> "
                                   "<arg name=\"number\" type=\"i\" direction=\"out\"/> "
                                   "<arg name=\"sValues\" type=\"as\" direction=\"out\"/> "
                                   "<arg name=\"nCount\" type=\"i\" direction=\"out\"/> </method>"));
}

TEST_F(ObjectServiceOnTheBus, GivesTheResultFirstThenTheByReferenceArguments)
{
    BusClient client(address());
    const QString object = client.create(kProbe);
    const QDBusMessage reply =
        client.call(object, kProbe, QStringLiteral("Walk"),
                    {QStringLiteral("new"), QStringList({QString(), QStringLiteral("old")}), 1});
    EXPECT_EQ(reply.signature(), QStringLiteral("iasi"));
    EXPECT_EQ(number(reply, 0), 259);
    EXPECT_EQ(reply.arguments().value(1).toStringList(),
              QStringList({QString(), QStringLiteral("old"), QStringLiteral("new")}));
    EXPECT_EQ(number(reply, 2), 2);
}

TEST_F(ObjectServiceOnTheBus, LeavesOutWhatOnlyComesBack)
{
    BusClient client(address());
    const QDBusMessage reply = client.call(client.create(kProbe), kProbe, QStringLiteral("Info"),
                                           {QStringLiteral("Näme"), 0x80000002U});
    EXPECT_EQ(reply.signature(), QStringLiteral("bs"));
    EXPECT_TRUE(reply.arguments().value(0).toBool());
    EXPECT_EQ(text(reply, 1), QStringLiteral("C:\\Näme"));
}

TEST_F(ObjectServiceOnTheBus, TakesFlagsAsBooleanNumberOrMissing)
{
    BusClient client(address());
    const QString object = client.create(kProbe);
    const auto kinds = [&](const QVariant& first, const QVariant& second) {
        return text(client.call(
            object, kProbe, QStringLiteral("Kinds"),
            {QVariant::fromValue(QDBusVariant(first)), QVariant::fromValue(QDBusVariant(second))}));
    };
    EXPECT_EQ(kinds(true, false), QStringLiteral("b True, b False"));
    EXPECT_EQ(kinds(QVariant::fromValue(short(-1)), 7), QStringLiteral("n -1, i 7"));
    EXPECT_EQ(kinds(QString(), QStringLiteral("x")), QStringLiteral("missing, s x"));
}

TEST_F(ObjectServiceOnTheBus, TellsAFailureWithItsNumberAndDescription)
{
    BusClient client(address());
    const QDBusMessage reply = client.call(client.create(kProbe), kProbe, QStringLiteral("Fail"),
                                           {76, QStringLiteral("Path not found: Ä")});
    EXPECT_EQ(reply.errorName(), QStringLiteral("com.zorvo.RunTimeError"));
    EXPECT_EQ(reply.errorMessage(), QStringLiteral("Error 76 - Path not found: Ä"));
}

TEST_F(ObjectServiceOnTheBus, AnswersAlsoAfterAnExceptionOfAnotherKind)
{
    BusClient client(address());
    const QDBusMessage reply = client.call(client.create(kProbe), kProbe, QStringLiteral("FailStrangely"));
    EXPECT_EQ(reply.errorName(), QStringLiteral("com.zorvo.RunTimeError"));
    EXPECT_EQ(reply.errorMessage(), QStringLiteral("Error 5 - not one of ours"));
}

TEST_F(ObjectServiceOnTheBus, AnswersWhenAnOperationGivesAnotherKindThanItDeclares)
{
    BusClient client(address());
    const QDBusMessage reply = client.call(client.create(kProbe), kProbe, QStringLiteral("WrongKind"));
    EXPECT_EQ(reply.errorMessage().left(9), QStringLiteral("Error 13 "));
}

TEST_F(ObjectServiceOnTheBus, KnowsNoOtherClass)
{
    BusClient client(address());
    EXPECT_EQ(client.service(QStringLiteral("CreateObject"), {QStringLiteral("No.Such")}).errorName(),
              QStringLiteral("com.zorvo.ClassNotRegistered"));
}

TEST_F(ObjectServiceOnTheBus, TellsWhenAClassCannotMakeAnObject)
{
    BusClient client(address());
    EXPECT_EQ(
        client.service(QStringLiteral("CreateObject"), {QStringLiteral("Test.Refusing")}).errorMessage(),
        QStringLiteral("Error 70 - not today"));
}

TEST_F(ObjectServiceOnTheBus, RefusesWrongArgumentsWithAnError)
{
    BusClient client(address());
    const QString object = client.create(kProbe);
    const auto errorOf = [&](const QString& member, const QVariantList& arguments) {
        return client.call(object, kProbe, member, arguments).errorName();
    };
    const QString kInvalid = QStringLiteral("org.freedesktop.DBus.Error.InvalidArgs");
    EXPECT_EQ(errorOf(QStringLiteral("Echo"), {5}), kInvalid);
    EXPECT_EQ(errorOf(QStringLiteral("Echo"), {}), kInvalid);
    EXPECT_EQ(errorOf(QStringLiteral("Echo"), {QStringLiteral("a"), QStringLiteral("b")}), kInvalid);
    EXPECT_EQ(errorOf(QStringLiteral("Kinds"), {true, true}), kInvalid);
    const QVariant map = QVariant::fromValue(QDBusVariant(QVariantMap{{QStringLiteral("a"), 1}}));
    EXPECT_EQ(errorOf(QStringLiteral("Kinds"), {map, map}), kInvalid);
    EXPECT_EQ(client.service(QStringLiteral("CreateObject"), {1}).errorName(), kInvalid);
    EXPECT_EQ(client.service(QStringLiteral("ReleaseObject"), {object}).errorName(), kInvalid);
}

TEST_F(ObjectServiceOnTheBus, RefusesUnknownNamesWithAnError)
{
    BusClient client(address());
    const QString object = client.create(kProbe);
    EXPECT_EQ(client.call(object, kProbe, QStringLiteral("NoSuch")).errorName(),
              QStringLiteral("org.freedesktop.DBus.Error.UnknownMethod"));
    EXPECT_EQ(client.call(object, QStringLiteral("No.Such"), QStringLiteral("Echo")).errorName(),
              QStringLiteral("org.freedesktop.DBus.Error.UnknownInterface"));
    EXPECT_EQ(client.call(object + QStringLiteral("9"), kProbe, QStringLiteral("Nothing")).errorName(),
              QStringLiteral("org.freedesktop.DBus.Error.UnknownObject"));
    EXPECT_EQ(client.service(QStringLiteral("GetObject"), {kProbe}).errorName(),
              QStringLiteral("org.freedesktop.DBus.Error.UnknownMethod"));
    EXPECT_EQ(client
                  .call(kRoot, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
                        {QStringLiteral("com.zorvo.ObjectService"), QStringLiteral("No")})
                  .errorName(),
              QStringLiteral("org.freedesktop.DBus.Error.UnknownProperty"));
}

TEST_F(ObjectServiceOnTheBus, FindsTheOperationWithoutAnInterface)
{
    BusClient client(address());
    EXPECT_EQ(
        text(client.call(client.create(kProbe), QString(), QStringLiteral("Echo"), {QStringLiteral("here")})),
        QStringLiteral("here"));
}

TEST_F(ObjectServiceOnTheBus, KeepsObjectsApart)
{
    BusClient client(address());
    const QString first = client.create(kProbe);
    const QString second = client.create(kProbe);
    EXPECT_NE(first, second);
    client.call(first, kProbe, QStringLiteral("SetNote"), {QStringLiteral("one")});
    client.call(second, kProbe, QStringLiteral("SetNote"), {QStringLiteral("two")});
    EXPECT_EQ(text(client.call(first, kProbe, QStringLiteral("Note"))), QStringLiteral("one"));
}

TEST_F(ObjectServiceOnTheBus, ReachesTheSameProcessFromASecondClient)
{
    BusClient first(address());
    BusClient second(address());
    first.create(kProbe);
    EXPECT_EQ(number(second.call(second.create(kProbe), kProbe, QStringLiteral("Living"))), 2);
}

TEST_F(ObjectServiceOnTheBus, DropsAReleasedObject)
{
    BusClient client(address());
    const QString kept = client.create(kProbe);
    const QString released = client.create(kProbe);
    EXPECT_EQ(client.release(released).type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(number(client.call(kept, kProbe, QStringLiteral("Living"))), 1);
    EXPECT_EQ(client.call(released, kProbe, QStringLiteral("Nothing")).errorName(),
              QStringLiteral("org.freedesktop.DBus.Error.UnknownObject"));
    EXPECT_EQ(client.release(released).errorName(),
              QStringLiteral("org.freedesktop.DBus.Error.UnknownObject"));
}

TEST_F(ObjectServiceOnTheBus, LetsOnlyTheMakerReleaseAnObject)
{
    BusClient maker(address());
    BusClient other(address());
    const QString object = maker.create(kProbe);
    EXPECT_EQ(other.release(object).type(), QDBusMessage::ErrorMessage);
    EXPECT_EQ(number(maker.call(object, kProbe, QStringLiteral("Living"))), 1);
}

TEST_F(ObjectServiceOnTheBus, DropsTheObjectsOfAClientThatVanishes)
{
    BusClient stays(address());
    const QString object = stays.create(kProbe);
    BusClient goes(address());
    goes.create(kProbe);
    goes.create(kProbe);
    ASSERT_EQ(number(stays.call(object, kProbe, QStringLiteral("Living"))), 3);
    goes.vanish();
    EXPECT_TRUE(waitUntil([&] { return number(stays.call(object, kProbe, QStringLiteral("Living"))) == 1; }));
}

} // namespace zorvo
