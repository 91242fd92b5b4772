#pragma once

#include "platform/ObjectService.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

/// How interfaces are described on the session bus.
namespace zorvo {

inline constexpr const char* kServiceInterface = "com.zorvo.ObjectService";
inline constexpr const char* kDispatchInterface = "com.zorvo.Dispatch";
inline constexpr const char* kRunTimeErrorName = "com.zorvo.RunTimeError";
inline constexpr const char* kClassNotRegisteredName = "com.zorvo.ClassNotRegistered";

struct BusArgument {
    QString name;
    QString type;
};

/// A member as it is on the wire: what goes in and what comes back, each in order.
struct BusMember {
    QString name;
    QList<BusArgument> in;
    QList<BusArgument> out;

    QString inSignature() const;
};

/// The member of an operation: the result comes back first, then the by-reference arguments in declared
/// order.
BusMember busMember(const AutomationOperation& operation);

struct BusInterface {
    QString name;
    QList<BusMember> members;
    /// Read-only ones.
    QList<BusArgument> properties;
};

/// The introspection text of an object with these interfaces, in order, next to the standard ones.
QString introspectionXml(const QList<BusInterface>& interfaces, const QStringList& children);

/// The interface of that name in a whole introspection text, in any case as class names are, with its members
/// and as it is spelled there; nothing when it isn't described.
std::optional<BusInterface> interfaceFromXml(const QString& xml, const QString& name);

/// The object path that goes with a bus name: slashes for dots, one ahead.
QString pathOfBusName(const QString& busName);

} // namespace zorvo
