#include "platform/linux/busErrors.h"

#include "platform/linux/busInterface.h"
#include "platform/linux/busValues.h"

#include <QDBusError>
#include <QRegularExpression>

namespace zorvo {

namespace {

RunTimeError remoteFailure(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^Error (-?\\d+) - (.*)$"),
                                         QRegularExpression::DotMatchesEverythingOption);
    const auto match = form.match(text);
    bool bNumber = false;
    const int nNumber = match.captured(1).toInt(&bNumber);
    if (!bNumber)
        return RunTimeError(kAutomationError, text.toStdString());
    return RunTimeError(nNumber, match.captured(2).toStdString());
}

bool isServerGone(const QString& name)
{
    switch (QDBusError(QDBusMessage::createError(name, QString())).type()) {
    case QDBusError::ServiceUnknown:
    case QDBusError::NoReply:
    case QDBusError::Disconnected:
    case QDBusError::UnknownObject:
        return true;
    default:
        return name == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner");
    }
}

} // namespace

QDBusMessage failedCall(const QDBusMessage& call, const std::exception& error)
{
    const auto* failure = dynamic_cast<const RunTimeError*>(&error);
    const int nNumber = failure ? failure->number() : int(kInvalidCall);
    const QString text = QStringLiteral("Error %1 - %2").arg(nNumber).arg(busText(error.what()));
    return call.createErrorReply(QLatin1String(kRunTimeErrorName), text);
}

QDBusMessage classNotRegistered(const QDBusMessage& call, const QString& progId)
{
    return call.createErrorReply(QLatin1String(kClassNotRegisteredName),
                                 QStringLiteral("The class \"%1\" isn't registered").arg(progId));
}

QDBusMessage unknownObject(const QDBusMessage& call, const QString& path)
{
    return call.createErrorReply(QDBusError::UnknownObject,
                                 QStringLiteral("This connection holds no object at %1").arg(path));
}

QDBusMessage unknownInterface(const QDBusMessage& call)
{
    return call.createErrorReply(
        QDBusError::UnknownInterface,
        QStringLiteral("The object %1 has no interface %2").arg(call.path(), call.interface()));
}

QDBusMessage unknownMember(const QDBusMessage& call)
{
    return call.createErrorReply(
        QDBusError::UnknownMethod,
        QStringLiteral("The object %1 has no operation %2").arg(call.path(), call.member()));
}

QDBusMessage wrongArguments(const QDBusMessage& call, const QString& expectedSignature)
{
    return call.createErrorReply(QDBusError::InvalidArgs,
                                 QStringLiteral("%1 takes arguments of the types \"%2\", not \"%3\"")
                                     .arg(call.member(), expectedSignature, call.signature()));
}

RunTimeError failureOf(const QDBusMessage& errorReply)
{
    const QString name = errorReply.errorName();
    const QString text = errorReply.errorMessage();
    if (name == QLatin1String(kRunTimeErrorName))
        return remoteFailure(text);
    if (name == QLatin1String(kClassNotRegisteredName))
        return RunTimeError(kCannotCreateObject);
    switch (QDBusError(errorReply).type()) {
    case QDBusError::UnknownMethod:
    case QDBusError::UnknownInterface:
        return RunTimeError(kMemberNotFound);
    case QDBusError::InvalidArgs:
    case QDBusError::InvalidSignature:
        return RunTimeError(kTypeMismatch);
    default:
        break;
    }
    if (isServerGone(name))
        return RunTimeError(kServerUnavailable, "The remote server machine does not exist or is unavailable");
    return RunTimeError(kAutomationError, text.isEmpty() ? name.toStdString() : text.toStdString());
}

} // namespace zorvo
