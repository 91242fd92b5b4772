#pragma once

#include "platform/Machine.h"

namespace zorvo {

/// The port on the system's clock, the user's locale and the session's environment.
class LinuxMachine : public Machine {
public:
    LocalTime now() override;
    std::string shortDate(const LocalTime& time) override;
    std::string timeOfDay(const LocalTime& time) override;
    std::string dateInWords(const LocalTime& time) override;
    /// A session of a remote desktop server, or a display of another machine or forwarded to one.
    bool isRemoteSession() override;
    void sleep(int milliseconds) override;
    /// Always 0: a kernel 6.0 isn't the system of that version.
    double systemVersion() override { return 0; }
};

} // namespace zorvo
