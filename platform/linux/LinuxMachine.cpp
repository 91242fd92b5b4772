#include "platform/linux/LinuxMachine.h"

#include <clocale>
#include <cstdlib>
#include <ctime>
#include <locale.h>
#include <string>
#include <string_view>

#include <chrono>
#include <thread>

namespace zorvo {

namespace {

/// The user's own formats, whatever locale the process runs in.
std::string formatted(const Machine::LocalTime& time, const char* format)
{
    std::tm parts{};
    parts.tm_year = time.year - 1900;
    parts.tm_mon = time.month - 1;
    parts.tm_mday = time.day;
    parts.tm_hour = time.hour;
    parts.tm_min = time.minute;
    parts.tm_sec = time.second;
    parts.tm_isdst = -1;
    std::tm weekday = parts; // some formats name it
    std::mktime(&weekday);
    parts.tm_wday = weekday.tm_wday;
    parts.tm_yday = weekday.tm_yday;
    locale_t locale = newlocale(LC_TIME_MASK | LC_CTYPE_MASK, "", nullptr);
    if (locale == nullptr) // a name that this machine doesn't have
        locale = newlocale(LC_TIME_MASK | LC_CTYPE_MASK, "C", nullptr);
    char text[256];
    const std::size_t length = strftime_l(text, sizeof text, format, &parts, locale);
    freelocale(locale);
    return {text, length};
}

std::string_view variable(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

} // namespace

Machine::LocalTime LinuxMachine::now()
{
    const std::time_t seconds = std::time(nullptr);
    std::tm parts{};
    localtime_r(&seconds, &parts);
    return {.year = parts.tm_year + 1900,
            .month = parts.tm_mon + 1,
            .day = parts.tm_mday,
            .hour = parts.tm_hour,
            .minute = parts.tm_min,
            .second = parts.tm_sec};
}

std::string LinuxMachine::shortDate(const LocalTime& time)
{
    return formatted(time, "%x");
}

std::string LinuxMachine::timeOfDay(const LocalTime& time)
{
    return formatted(time, "%X");
}

std::string LinuxMachine::dateInWords(const LocalTime& time)
{
    return formatted(time, "%A, %b ") + std::to_string(time.day) + " " + std::to_string(time.year);
}

bool LinuxMachine::isRemoteSession()
{
    if (!variable("XRDP_SESSION").empty() || !variable("X2GO_SESSION").empty() ||
        !variable("VNCDESKTOP").empty())
        return true;
    const std::string_view display = variable("DISPLAY");
    const std::string_view host = display.substr(0, display.rfind(':'));
    if (host.empty() || host == "unix" || host.starts_with('/'))
        return false;
    const bool bHere = host == "localhost" || host == "127.0.0.1" || host == "[::1]";
    return !bHere || !variable("SSH_CONNECTION").empty();
}

void LinuxMachine::sleep(int milliseconds)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

} // namespace zorvo
