#pragma once

#include <cstddef>
#include <cstdint>

/// What passes between the viewer and the process that reads a book for it. A book is somebody else's work
/// and its container is taken apart by a library of old; whatever that does, it does in a process that holds
/// nothing and can reach nothing.
///
/// The viewer writes a request (its kind, one byte; the length of its text, four bytes; the text) to the
/// reader's standard input and gets one answer (state, one byte; length, four bytes; the bytes) from its
/// standard output. Numbers are little endian. One answer comes unasked: that of the opening.
namespace zorvo::help {

enum class RequestKind : std::uint8_t {
    list = 'L', // the paths of all pages and files, each followed by a line feed
    read = 'R'  // the file of that path
};

enum class ReaderState : std::uint8_t { done = 'd', missing = 'm', damaged = 'x', tooLarge = 'l' };

inline constexpr std::size_t kHeaderSize = 5;
inline constexpr std::size_t kMostRequest = 4096;
inline constexpr std::size_t kMostAnswer = 32U << 20U;

} // namespace zorvo::help
