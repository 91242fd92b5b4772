#pragma once

#include "platform/Automation.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// Serving our own classes to other processes. The table of classes is the shell's; an adaptor carries it
/// over whatever the platform has and knows no class by name.
namespace zorvo {

enum class ArgumentKind { text, boolean, int32, uint32, variant, textArray };
/// `result` is the operation's return value: on the wire it comes ahead of the by-reference ones.
enum class ArgumentDirection { in, out, inOut, result };

struct AutomationArgument {
    std::string sName;
    ArgumentKind kind;
    ArgumentDirection direction;
};

struct AutomationOperation {
    std::string sName;
    /// In declared order, at most one of them the result.
    std::vector<AutomationArgument> arguments;
    /// Takes one value per argument that isn't the result, in order (an `out` comes as std::monostate),
    /// writes the `out` and `inOut` ones and gives the result or std::monostate. Throws RunTimeError.
    std::function<Value(AutomationObject& instance, std::vector<Value>& arguments)> call;
};

struct AutomationClass {
    std::string sProgId;
    /// In slot order.
    std::vector<AutomationOperation> operations;
    std::function<AutomationObjectPtr()> create;
};

class ObjectService {
public:
    virtual ~ObjectService() = default;

    /// Registers the classes, in type-library order, and begins to serve them on this thread's event loop.
    /// `isFormLoaded` is asked when the last client object has gone: while it says no, and no object is left,
    /// the process ends by the platform's rule. False when another process serves already or there is no
    /// service.
    virtual bool start(std::vector<AutomationClass> classes, std::function<bool()> isFormLoaded) = 0;

    /// To be told when a form was unloaded: the end of the process may now be due.
    virtual void reconsiderEnd() = 0;

    /// Ends the process at once. Every client whose call is open gets its reply, a success, first.
    [[noreturn]] virtual void endProcess() = 0;
};

} // namespace zorvo
