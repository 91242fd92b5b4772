#pragma once

#include <functional>
#include <string>

namespace zorvo {

/// Reads the standard input in a thread of its own and hands its lines over to the event loop. The end of the
/// input ends the process, also when the event loop hangs.
class CommandLines {
public:
    explicit CommandLines(std::function<void(const std::string&)> take);
};

} // namespace zorvo
