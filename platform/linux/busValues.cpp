#include "platform/linux/busValues.h"

#include "base/RunTimeError.h"
#include "base/numbers.h"
#include "base/text.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QStringList>
#include <cmath>
#include <limits>

namespace zorvo {

namespace {

template <typename... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

[[noreturn]] void mismatch()
{
    throw RunTimeError(kTypeMismatch);
}

double numberOf(const Value& value)
{
    return std::visit(Overloaded{[](std::monostate) { return 0.0; }, [](bool b) { return b ? -1.0 : 0.0; },
                                 [](const std::string& s) { return toDouble(s); },
                                 [](const std::vector<std::string>&) -> double { mismatch(); },
                                 [](const AutomationObjectPtr&) -> double { mismatch(); },
                                 [](auto n) { return static_cast<double>(n); }},
                      value);
}

template <typename Number>
QVariant numberAs(const Value& value)
{
    const double number = std::nearbyint(numberOf(value));
    if (number < static_cast<double>(std::numeric_limits<Number>::min()) ||
        number > static_cast<double>(std::numeric_limits<Number>::max()))
        throw RunTimeError(kOverflow);
    return QVariant::fromValue(static_cast<Number>(number));
}

bool booleanOf(const Value& value)
{
    if (const auto* text = std::get_if<std::string>(&value)) {
        if (equalNoCase(*text, "true"))
            return true;
        if (equalNoCase(*text, "false"))
            return false;
    }
    return numberOf(value) != 0.0;
}

QString textOf(const Value& value)
{
    return std::visit(Overloaded{[](std::monostate) { return QString(); },
                                 [](bool b) { return b ? QStringLiteral("True") : QStringLiteral("False"); },
                                 [](const std::string& s) { return busText(s); },
                                 [](const std::vector<std::string>&) -> QString { mismatch(); },
                                 [](const AutomationObjectPtr&) -> QString { mismatch(); },
                                 [](auto n) { return QString::number(n); }},
                      value);
}

QStringList textsOf(const Value& value)
{
    if (std::holds_alternative<std::monostate>(value))
        return {};
    const auto* texts = std::get_if<std::vector<std::string>>(&value);
    if (!texts)
        mismatch();
    QStringList list;
    list.reserve(static_cast<qsizetype>(texts->size()));
    for (const std::string& text : *texts)
        list.append(busText(text));
    return list;
}

QVariant plainVariant(const Value& value)
{
    return std::visit(
        Overloaded{[](std::monostate) { return QVariant(QString()); },
                   [](const std::string& s) { return QVariant(busText(s)); },
                   [&value](const std::vector<std::string>&) { return QVariant(textsOf(value)); },
                   [](const AutomationObjectPtr&) -> QVariant { mismatch(); },
                   [](std::int16_t n) { return QVariant::fromValue(static_cast<short>(n)); },
                   [](auto n) { return QVariant::fromValue(n); }},
        value);
}

QVariant numberAsType(const Value& value, char type)
{
    switch (type) {
    case 'y':
        return numberAs<uchar>(value);
    case 'n':
        return numberAs<short>(value);
    case 'q':
        return numberAs<ushort>(value);
    case 'i':
        return numberAs<int>(value);
    case 'u':
        return numberAs<uint>(value);
    case 'x':
        return numberAs<qlonglong>(value);
    case 't':
        return numberAs<qulonglong>(value);
    case 'd':
        return numberOf(value);
    default:
        mismatch();
    }
}

Value textsFrom(const QStringList& list)
{
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(list.size()));
    for (const QString& text : list)
        texts.push_back(text.toStdString());
    return texts;
}

} // namespace

QVariantList busVariants(const QVariant& argument)
{
    // An array of variants arrives either as a list or still packed, as its elements' type was known or not.
    if (argument.metaType() == QMetaType::fromType<QDBusArgument>())
        return qdbus_cast<QVariantList>(argument);
    return argument.toList();
}

QString busText(const std::string& text)
{
    return QString::fromStdString(cutAtNull(text));
}

QString busType(ArgumentKind kind)
{
    switch (kind) {
    case ArgumentKind::text:
        return QStringLiteral("s");
    case ArgumentKind::boolean:
        return QStringLiteral("b");
    case ArgumentKind::int32:
        return QStringLiteral("i");
    case ArgumentKind::uint32:
        return QStringLiteral("u");
    case ArgumentKind::variant:
        return QStringLiteral("v");
    case ArgumentKind::textArray:
        return QStringLiteral("as");
    }
    mismatch();
}

QVariant toBus(const Value& value, const QString& type)
{
    if (type == QLatin1String("as"))
        return textsOf(value);
    if (type == QLatin1String("v"))
        return toBusVariant(value);
    if (type.size() != 1)
        mismatch();
    switch (type.at(0).toLatin1()) {
    case 's':
        return textOf(value);
    case 'b':
        return booleanOf(value);
    case 'o': {
        const QString path = textOf(value);
        if (!path.startsWith(QLatin1Char('/')))
            mismatch();
        return QVariant::fromValue(QDBusObjectPath(path));
    }
    default:
        return numberAsType(value, type.at(0).toLatin1());
    }
}

QVariant toBusVariant(const Value& value)
{
    return QVariant::fromValue(QDBusVariant(plainVariant(value)));
}

Value fromBus(const QVariant& argument)
{
    if (argument.metaType() == QMetaType::fromType<QDBusVariant>()) {
        Value inner = fromBus(argument.value<QDBusVariant>().variant());
        const auto* text = std::get_if<std::string>(&inner);
        return text && text->empty() ? Value() : inner;
    }
    if (argument.metaType() == QMetaType::fromType<QDBusObjectPath>())
        return argument.value<QDBusObjectPath>().path().toStdString();
    switch (argument.metaType().id()) {
    case QMetaType::Bool:
        return argument.toBool();
    case QMetaType::Short:
        return argument.value<std::int16_t>();
    case QMetaType::UChar:
    case QMetaType::UShort:
    case QMetaType::Int:
        return static_cast<std::int32_t>(argument.toInt());
    case QMetaType::UInt:
        return static_cast<std::uint32_t>(argument.toUInt());
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
        return argument.toDouble();
    case QMetaType::QString:
        return argument.toString().toStdString();
    case QMetaType::QStringList:
        return textsFrom(argument.toStringList());
    default:
        mismatch();
    }
}

} // namespace zorvo
