#pragma once

#include <string>
#include <string_view>

/// What the program and the process of its page view say to each other: lines of text over the process's
/// standard streams, each a word and what belongs to it, parted by one blank. Both throw away a line that
/// they don't know, and one that is longer than `kLongestLine`. The end of its input ends the page process.
namespace zorvo::pageProtocol {

/// Goes up when a word changes its meaning. The page process begins with "hello" and its version; the program
/// doesn't talk to another one.
inline constexpr const char* kVersion = "1";
inline constexpr std::size_t kLongestLine = 65536;

/// The page process's one argument, which asks it to tell assistive programs what pages hold.
inline constexpr const char* kAccessible = "--accessible";

// To the page process.
inline constexpr const char* kShowIn = "show-in";    // the number of the window that the page fills
inline constexpr const char* kNavigate = "navigate"; // a number, and an encoded http, https or file address
inline constexpr const char* kSize = "size";         // width and height in logical pixels
inline constexpr const char* kBlock = "block";       // a box of the program is up: the page takes no input
inline constexpr const char* kUnblock = "unblock";
inline constexpr const char* kTakeFocus = "take-focus"; // "first", "last" or "same"

// To the program. What becomes of pages begins with the number of the last "navigate" that was carried out:
// by the time it arrives another page may have been asked for, and it is of no more interest.
inline constexpr const char* kHello = "hello";
inline constexpr const char* kFinished = "finished"; // the encoded address of a page that has loaded
inline constexpr const char* kFailed = "failed";     // the encoded address that couldn't be reached
inline constexpr const char* kStopped = "stopped";   // a loading ended with neither
inline constexpr const char* kFocusIn = "focus-in";
inline constexpr const char* kFocusOut = "focus-out";
inline constexpr const char* kLeave = "leave"; // the keyboard leaves the page: "next" or "previous"

struct Message {
    std::string sWord;
    std::string sRest;
};

/// Without a line end. A rest with control characters in it would be another message: they are left out.
std::string line(std::string_view sWord, std::string_view sRest = {});
/// Of a line without its end.
Message parse(std::string_view line);

} // namespace zorvo::pageProtocol
