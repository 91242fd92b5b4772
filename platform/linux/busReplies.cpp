#include "platform/linux/busReplies.h"

#include "base/RunTimeError.h"
#include "platform/linux/busValues.h"

namespace zorvo {

namespace {

QVariant anyOfType(const Value& value, const QString& type)
{
    try {
        return toBus(value, type);
    } catch (const RunTimeError&) { // half-written by the operation: the type is all that counts
        return toBus(Value(), type);
    }
}

template <typename ToBus>
QVariantList replies(const AutomationOperation& operation, const Value& result,
                     const std::vector<Value>& arguments, ToBus convert)
{
    QVariantList wire;
    std::size_t index = 0;
    for (const AutomationArgument& argument : operation.arguments) {
        if (argument.direction == ArgumentDirection::result) {
            wire.prepend(convert(result, busType(argument.kind)));
            continue;
        }
        if (argument.direction != ArgumentDirection::in)
            wire.append(convert(arguments.at(index), busType(argument.kind)));
        ++index;
    }
    return wire;
}

} // namespace

std::vector<Value> argumentsOf(const AutomationOperation& operation, const QVariantList& wire)
{
    std::vector<Value> arguments;
    auto next = wire.begin();
    for (const AutomationArgument& argument : operation.arguments) {
        if (argument.direction == ArgumentDirection::result)
            continue;
        if (argument.direction == ArgumentDirection::out)
            arguments.emplace_back();
        else
            arguments.push_back(fromBus(*next++));
    }
    return arguments;
}

QDBusMessage successReply(const QDBusMessage& call, const AutomationOperation& operation, const Value& result,
                          const std::vector<Value>& arguments)
{
    return call.createReply(replies(operation, result, arguments, toBus));
}

QDBusMessage emptySuccess(const QDBusMessage& call, const AutomationOperation& operation,
                          const std::vector<Value>& arguments)
{
    return call.createReply(replies(operation, Value(), arguments, anyOfType));
}

} // namespace zorvo
