#pragma once

#include "platform/Automation.h"

#include <string>

namespace zorvo {

/// Objects of components that the program knows by name alone.
class ObjectCreator {
public:
    virtual ~ObjectCreator() = default;

    /// A new object. Throws RunTimeError 429 when the class isn't registered or its server can't be started.
    virtual LateBoundPtr createByProgId(const std::string& progId) = 0;
    /// The class id in braces.
    virtual LateBoundPtr createByClassId(const std::string& classId) = 0;
    /// A running object, never starting a server. Throws RunTimeError 429 when none runs.
    virtual LateBoundPtr attach(const std::string& progId) = 0;
};

} // namespace zorvo
