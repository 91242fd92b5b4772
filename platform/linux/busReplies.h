#pragma once

#include "platform/ObjectService.h"

#include <QDBusMessage>

/// An operation's arguments and replies as they are on the session bus.
namespace zorvo {

/// The values for the operation: what came on the wire at the places of the arguments that go in, nothing at
/// those of the others. Throws RunTimeError 13 for a variant that holds what no value can be.
std::vector<Value> argumentsOf(const AutomationOperation& operation, const QVariantList& wire);

/// The result comes first, then the by-reference arguments in declared order. Throws RunTimeError 13 when the
/// operation gave a value of another kind than it declares.
QDBusMessage successReply(const QDBusMessage& call, const AutomationOperation& operation, const Value& result,
                          const std::vector<Value>& arguments);

/// A reply of that shape for a call that is cut off by the end of the process: no result, the by-reference
/// arguments as they stand. Never throws.
QDBusMessage emptySuccess(const QDBusMessage& call, const AutomationOperation& operation,
                          const std::vector<Value>& arguments);

} // namespace zorvo
