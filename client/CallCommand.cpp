#include "client/CallCommand.h"

#include "client/callArguments.h"
#include "client/exitCodes.h"
#include "client/failureLine.h"
#include "client/programServer.h"

namespace zorvo {

namespace {

/// What the user wrote doesn't fit the operation.
struct WrongUsage {
    std::string sLine;
};

std::string usageOf(const std::string& sProgId, const BusMember& member)
{
    std::string sUsage = "usage: brendle call " + sProgId + ' ' + member.name.toStdString();
    for (const BusArgument& argument : member.in)
        sUsage += ' ' + argument.name.toStdString() + ':' + argument.type.toStdString();
    return sUsage;
}

std::vector<Value> convertedArguments(const std::string& sProgId, const BusMember& member,
                                      const std::vector<std::string>& texts)
{
    if (static_cast<qsizetype>(texts.size()) != member.in.size())
        throw WrongUsage{usageOf(sProgId, member)};
    std::vector<Value> arguments;
    for (std::size_t index = 0; index < texts.size(); ++index) {
        const std::string sType = member.in.at(static_cast<qsizetype>(index)).type.toStdString();
        const auto value = argumentFromText(sType, texts[index]);
        if (!value)
            throw WrongUsage{usageOf(sProgId, member) + "; '" + texts[index] + "' is no " + sType};
        arguments.push_back(*value);
    }
    return arguments;
}

std::vector<Value> callUndescribed(DBusRemoteObject& object, const std::string& sOperation,
                                   const std::vector<std::string>& texts)
{
    std::vector<Value> arguments;
    arguments.reserve(texts.size());
    for (const std::string& sText : texts)
        arguments.push_back(*argumentFromText("v", sText));
    const Value result = object.invoke(sOperation, arguments);
    return {result};
}

std::vector<Value> call(const std::string& sProgId, const std::string& sOperation,
                        const std::vector<std::string>& texts)
{
    const auto object = createAnyObject(sProgId);
    if (!object->isDescribed())
        return callUndescribed(*object, sOperation, texts);
    const auto member = object->member(QString::fromStdString(sOperation));
    if (!member)
        throw RunTimeError(kMemberNotFound, sProgId + " has no operation " + sOperation);
    return object->allReplies(*member, convertedArguments(sProgId, *member, texts));
}

} // namespace

int runCallCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    if (args.size() < 2) {
        err << "usage: brendle call PROGID OPERATION [ARG ...]\n";
        return kExitWrongUsage;
    }
    try {
        for (const Value& result : call(args[0], args[1], {args.begin() + 2, args.end()}))
            printResult(result, out);
        return kExitDone;
    } catch (const WrongUsage& usage) {
        err << usage.sLine << '\n';
        return kExitWrongUsage;
    } catch (const RunTimeError& error) {
        err << failureLine(error) << '\n';
        return kExitFailed;
    }
}

} // namespace zorvo
