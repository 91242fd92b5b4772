#include "platform/linux/busInterface.h"

#include "platform/linux/busValues.h"

#include <QXmlStreamReader>

namespace zorvo {

namespace {

constexpr const char* kHead =
    "<!DOCTYPE node PUBLIC \"-//freedesktop//DTD D-BUS Object Introspection 1.0//EN\"\n"
    "\"http://www.freedesktop.org/standards/dbus/1.0/introspect.dtd\">\n"
    "<node>\n";
constexpr const char* kStandardInterfaces =
    "  <interface name=\"org.freedesktop.DBus.Properties\">\n"
    "    <method name=\"Get\">\n"
    "      <arg name=\"interface_name\" type=\"s\" direction=\"in\"/>\n"
    "      <arg name=\"property_name\" type=\"s\" direction=\"in\"/>\n"
    "      <arg name=\"value\" type=\"v\" direction=\"out\"/>\n"
    "    </method>\n"
    "    <method name=\"GetAll\">\n"
    "      <arg name=\"interface_name\" type=\"s\" direction=\"in\"/>\n"
    "      <arg name=\"values\" type=\"a{sv}\" direction=\"out\"/>\n"
    "    </method>\n"
    "    <method name=\"Set\">\n"
    "      <arg name=\"interface_name\" type=\"s\" direction=\"in\"/>\n"
    "      <arg name=\"property_name\" type=\"s\" direction=\"in\"/>\n"
    "      <arg name=\"value\" type=\"v\" direction=\"in\"/>\n"
    "    </method>\n"
    "  </interface>\n"
    "  <interface name=\"org.freedesktop.DBus.Introspectable\">\n"
    "    <method name=\"Introspect\">\n"
    "      <arg name=\"xml_data\" type=\"s\" direction=\"out\"/>\n"
    "    </method>\n"
    "  </interface>\n"
    "  <interface name=\"org.freedesktop.DBus.Peer\">\n"
    "    <method name=\"Ping\"/>\n"
    "    <method name=\"GetMachineId\">\n"
    "      <arg name=\"machine_uuid\" type=\"s\" direction=\"out\"/>\n"
    "    </method>\n"
    "  </interface>\n";

QString argumentXml(const BusArgument& argument, const QString& direction)
{
    const QString name = argument.name.isEmpty()
                             ? QString()
                             : QStringLiteral(" name=\"%1\"").arg(argument.name.toHtmlEscaped());
    return QStringLiteral("      <arg%1 type=\"%2\" direction=\"%3\"/>\n")
        .arg(name, argument.type, direction);
}

QString memberXml(const BusMember& member)
{
    QString xml = QStringLiteral("    <method name=\"%1\">\n").arg(member.name.toHtmlEscaped());
    for (const BusArgument& argument : member.in)
        xml += argumentXml(argument, QStringLiteral("in"));
    for (const BusArgument& argument : member.out)
        xml += argumentXml(argument, QStringLiteral("out"));
    return xml + QStringLiteral("    </method>\n");
}

QString interfaceXml(const BusInterface& interface)
{
    QString xml = QStringLiteral("  <interface name=\"%1\">\n").arg(interface.name.toHtmlEscaped());
    for (const BusMember& member : interface.members)
        xml += memberXml(member);
    for (const BusArgument& property : interface.properties)
        xml += QStringLiteral("    <property name=\"%1\" type=\"%2\" access=\"read\"/>\n")
                   .arg(property.name, property.type);
    return xml + QStringLiteral("  </interface>\n");
}

BusMember readMember(QXmlStreamReader& reader)
{
    BusMember member;
    member.name = reader.attributes().value(QLatin1String("name")).toString();
    while (reader.readNextStartElement()) {
        if (reader.name() == QLatin1String("arg")) {
            const auto attributes = reader.attributes();
            const BusArgument argument{attributes.value(QLatin1String("name")).toString(),
                                       attributes.value(QLatin1String("type")).toString()};
            const bool bOut = attributes.value(QLatin1String("direction")) == QLatin1String("out");
            (bOut ? member.out : member.in).append(argument);
        }
        reader.skipCurrentElement();
    }
    return member;
}

QList<BusMember> readMembers(QXmlStreamReader& reader)
{
    QList<BusMember> members;
    while (reader.readNextStartElement()) {
        if (reader.name() == QLatin1String("method"))
            members.append(readMember(reader));
        else
            reader.skipCurrentElement();
    }
    return members;
}

} // namespace

QString BusMember::inSignature() const
{
    QString signature;
    for (const BusArgument& argument : in)
        signature += argument.type;
    return signature;
}

BusMember busMember(const AutomationOperation& operation)
{
    BusMember member;
    member.name = QString::fromStdString(operation.sName);
    for (const AutomationArgument& argument : operation.arguments) {
        const BusArgument wire{QString::fromStdString(argument.sName), busType(argument.kind)};
        switch (argument.direction) {
        case ArgumentDirection::in:
            member.in.append(wire);
            break;
        case ArgumentDirection::out:
            member.out.append(wire);
            break;
        case ArgumentDirection::inOut:
            member.in.append(wire);
            member.out.append(wire);
            break;
        case ArgumentDirection::result:
            member.out.prepend(wire);
            break;
        }
    }
    return member;
}

QString introspectionXml(const QList<BusInterface>& interfaces, const QStringList& children)
{
    QString xml = QLatin1String(kHead);
    for (const BusInterface& interface : interfaces)
        xml += interfaceXml(interface);
    xml += QLatin1String(kStandardInterfaces);
    for (const QString& child : children)
        xml += QStringLiteral("  <node name=\"%1\"/>\n").arg(child.toHtmlEscaped());
    return xml + QStringLiteral("</node>\n");
}

std::optional<BusInterface> interfaceFromXml(const QString& xml, const QString& name)
{
    QXmlStreamReader reader(xml);
    if (!reader.readNextStartElement())
        return {};
    while (reader.readNextStartElement()) {
        const QString found = reader.attributes().value(QLatin1String("name")).toString();
        if (reader.name() == QLatin1String("interface") && found.compare(name, Qt::CaseInsensitive) == 0)
            return BusInterface{found, readMembers(reader), {}};
        reader.skipCurrentElement();
    }
    return {};
}

QString pathOfBusName(const QString& busName)
{
    return QLatin1Char('/') + QString(busName).replace(QLatin1Char('.'), QLatin1Char('/'));
}

} // namespace zorvo
