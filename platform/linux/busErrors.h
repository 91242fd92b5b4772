#pragma once

#include "base/RunTimeError.h"
#include "platform/ObjectService.h"

#include <QDBusMessage>
#include <exception>

/// Failures on the session bus. Every name is a legal error name: an illegal one is never sent, and its
/// caller waits for ever.
namespace zorvo {

/// `com.zorvo.RunTimeError` with "Error <number> - <description>". An exception that isn't a RunTimeError is
/// an invalid call (5).
QDBusMessage failedCall(const QDBusMessage& call, const std::exception& error);
QDBusMessage classNotRegistered(const QDBusMessage& call, const QString& progId);
QDBusMessage unknownObject(const QDBusMessage& call, const QString& path);
QDBusMessage unknownInterface(const QDBusMessage& call);
QDBusMessage unknownMember(const QDBusMessage& call);
QDBusMessage wrongArguments(const QDBusMessage& call, const QString& expectedSignature);

/// The failure that an error reply stands for: the number and text of a `com.zorvo.RunTimeError`; 438 for a
/// member that isn't there, 13 for wrong arguments, 429 for an unknown class, 462 for a server that has gone;
/// 440 with the other side's text for the rest.
RunTimeError failureOf(const QDBusMessage& errorReply);

enum ServerErrorNumber : int { kAutomationError = 440, kServerUnavailable = 462 };

} // namespace zorvo
