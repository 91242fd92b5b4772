#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

/// Values and objects that cross to other components, whatever carries them.
namespace zorvo {

/// A handle on something that lives on the other side: a document, an add-in, an instance of one of our
/// classes.
class AutomationObject {
public:
    virtual ~AutomationObject() = default;
};

using AutomationObjectPtr = std::shared_ptr<AutomationObject>;

/// std::monostate is a missing argument, or no result.
using Value = std::variant<std::monostate, bool, std::int16_t, std::int32_t, std::uint32_t, double,
                           std::string, std::vector<std::string>, AutomationObjectPtr>;

/// An object whose members are called by name at run time.
class LateBoundObject : public AutomationObject {
public:
    /// By-reference arguments come back in `arguments`. Throws RunTimeError: 438 for an unknown member, 13
    /// for arguments it doesn't take, the component's own number otherwise.
    virtual Value invoke(const std::string& member, std::vector<Value>& arguments) = 0;
    virtual Value invokeById(int dispatchId, std::vector<Value>& arguments) = 0;

    /// For members whose arguments only go in.
    Value call(const std::string& member, std::vector<Value> arguments = {})
    {
        return invoke(member, arguments);
    }
};

using LateBoundPtr = std::shared_ptr<LateBoundObject>;

} // namespace zorvo
