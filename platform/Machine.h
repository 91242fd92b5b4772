#pragma once

#include <cstdint>
#include <string>

namespace zorvo {

/// Small questions to the machine.
class Machine {
public:
    struct LocalTime {
        int year = 0;
        int month = 0;
        int day = 0;
        int hour = 0;
        int minute = 0;
        int second = 0;
    };

    virtual ~Machine() = default;

    virtual LocalTime now() = 0;
    /// The short date and the time of the user's locale.
    virtual std::string shortDate(const LocalTime& time) = 0;
    virtual std::string timeOfDay(const LocalTime& time) = 0;
    /// "Tuesday, Mar 5 2024": day and month in the user's language, the order always the same.
    virtual std::string dateInWords(const LocalTime& time) = 0;
    /// The session is shown on another machine.
    virtual bool isRemoteSession() = 0;
    virtual void sleep(int milliseconds) = 0;
    /// The system's version, such as 5.1 or 6.0; 0 for a system that counts its versions in another way.
    virtual double systemVersion() = 0;
};

} // namespace zorvo
