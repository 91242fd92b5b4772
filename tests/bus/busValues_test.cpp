#include "base/RunTimeError.h"
#include "platform/linux/busErrors.h"
#include "platform/linux/busInterface.h"
#include "platform/linux/busValues.h"

#include <QDBusObjectPath>
#include <QDBusVariant>
#include <gmock/gmock.h>

namespace zorvo {

int failureNumber(const Value& value, const char* type)
{
    try {
        toBus(value, QLatin1String(type));
        return 0;
    } catch (const RunTimeError& error) {
        return error.number();
    }
}

TEST(BusValue, HasTheTypeThatIsAskedFor)
{
    EXPECT_EQ(toBus(std::string("-5"), QStringLiteral("i")), QVariant(-5));
    EXPECT_EQ(toBus(true, QStringLiteral("n")), QVariant::fromValue(short(-1)));
    EXPECT_EQ(toBus(std::int32_t{2}, QStringLiteral("b")), QVariant(true));
    EXPECT_EQ(toBus(std::string("TRUE"), QStringLiteral("b")), QVariant(true));
    EXPECT_EQ(toBus(false, QStringLiteral("s")), QVariant(QStringLiteral("False")));
    EXPECT_EQ(toBus(std::uint32_t{7}, QStringLiteral("s")), QVariant(QStringLiteral("7")));
    EXPECT_EQ(toBus(2.5, QStringLiteral("i")), QVariant(2)) << "half to even";
    EXPECT_EQ(toBus(std::uint32_t{0x80000002U}, QStringLiteral("u")), QVariant(0x80000002U));
}

TEST(BusValue, StandsInForAMissingOne)
{
    EXPECT_EQ(toBus({}, QStringLiteral("s")), QVariant(QString()));
    EXPECT_EQ(toBus({}, QStringLiteral("i")), QVariant(0));
    EXPECT_EQ(toBus({}, QStringLiteral("b")), QVariant(false));
    EXPECT_EQ(toBus({}, QStringLiteral("as")), QVariant(QStringList()));
    EXPECT_EQ(toBus({}, QStringLiteral("v")).value<QDBusVariant>().variant(), QVariant(QString()));
}

TEST(BusValue, RefusesWhatDoesNotConvert)
{
    EXPECT_EQ(failureNumber(std::string("x"), "i"), kTypeMismatch);
    EXPECT_EQ(failureNumber(std::vector<std::string>{"a"}, "s"), kTypeMismatch);
    EXPECT_EQ(failureNumber(std::string("a"), "as"), kTypeMismatch);
    EXPECT_EQ(failureNumber(std::string("no path"), "o"), kTypeMismatch);
    EXPECT_EQ(failureNumber(std::make_shared<AutomationObject>(), "v"), kTypeMismatch);
    EXPECT_EQ(failureNumber(std::string("a"), "a{sv}"), kTypeMismatch);
    EXPECT_EQ(failureNumber(std::int32_t{40000}, "n"), kOverflow);
    EXPECT_EQ(failureNumber(std::int32_t{-1}, "u"), kOverflow);
}

TEST(BusValue, EndsATextAtItsFirstZeroCharacter)
{
    EXPECT_EQ(toBus(std::string("a\0b", 3), QStringLiteral("s")), QVariant(QStringLiteral("a")));
}

TEST(BusValue, ComesInWithItsKind)
{
    EXPECT_EQ(fromBus(QVariant::fromValue(short(-1))), Value(std::int16_t{-1}));
    EXPECT_EQ(fromBus(QVariant::fromValue(ushort(5))), Value(std::int32_t{5}));
    EXPECT_EQ(fromBus(5U), Value(std::uint32_t{5}));
    EXPECT_EQ(fromBus(QStringList{QString(), QStringLiteral("ä")}), Value(std::vector<std::string>{"", "ä"}));
    EXPECT_EQ(fromBus(QVariant::fromValue(QDBusObjectPath(QStringLiteral("/a")))), Value(std::string("/a")));
    EXPECT_EQ(fromBus(QString()), Value(std::string())) << "an empty text is missing inside a variant only";
    EXPECT_EQ(fromBus(QVariant::fromValue(QDBusVariant(QString()))), Value());
    EXPECT_THROW(fromBus(QVariantMap()), RunTimeError);
}

TEST(BusInterface, DescriptionIsReadBackAsItWasWritten)
{
    const BusMember member{
        QStringLiteral("TreeSelectProfileDataForm"),
        {{QStringLiteral("folder"), QStringLiteral("s")}, {QString(), QStringLiteral("i")}},
        {{QStringLiteral("profile"), QStringLiteral("s")}}};
    const QString xml = introspectionXml(
        {{QStringLiteral("Test.Other"), {}, {}}, {QStringLiteral("Test.This"), {member}, {}}},
        {QStringLiteral("1")});
    const auto described = interfaceFromXml(xml, QStringLiteral("test.THIS"));
    ASSERT_TRUE(described.has_value());
    EXPECT_EQ(described->name, QStringLiteral("Test.This"));
    ASSERT_EQ(described->members.size(), 1);
    EXPECT_EQ(described->members.at(0).name, member.name);
    EXPECT_EQ(described->members.at(0).inSignature(), QStringLiteral("si"));
    EXPECT_EQ(described->members.at(0).out.at(0).name, QStringLiteral("profile"));
    EXPECT_FALSE(interfaceFromXml(xml, QStringLiteral("No.Such")).has_value());
    EXPECT_FALSE(interfaceFromXml(QStringLiteral("not xml"), QStringLiteral("Test.This")).has_value());
}

TEST(BusFailure, KeepsNumberAndTextOfTheOtherSide)
{
    const auto failure = [](const char* name, const char* text) {
        return failureOf(QDBusMessage::createError(QLatin1String(name), QString::fromUtf8(text)));
    };
    EXPECT_EQ(failure("com.zorvo.RunTimeError", "Error 53 - Ä\nb").number(), 53);
    EXPECT_EQ(failure("com.zorvo.RunTimeError", "Error 53 - Ä\nb").description(), "Ä\nb");
    EXPECT_EQ(failure("com.zorvo.RunTimeError", "no number").number(), 440);
    EXPECT_EQ(failure("com.zorvo.RunTimeError", "no number").description(), "no number");
    EXPECT_EQ(failure("com.zorvo.ClassNotRegistered", "").number(), 429);
    EXPECT_EQ(failure("org.freedesktop.DBus.Error.UnknownMethod", "").number(), 438);
    EXPECT_EQ(failure("org.freedesktop.DBus.Error.InvalidArgs", "").number(), 13);
    EXPECT_EQ(failure("org.freedesktop.DBus.Error.NoReply", "").number(), 462);
    EXPECT_EQ(failure("org.freedesktop.DBus.Error.ServiceUnknown", "").number(), 462);
    EXPECT_EQ(failure("some.other.Error", "why").description(), "why");
}

} // namespace zorvo
