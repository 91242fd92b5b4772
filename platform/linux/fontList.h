#pragma once

#include <thread>

namespace zorvo {

/// Reads the system's list of fonts on a thread of its own, which a program starts before it connects to its
/// display and joins afterwards: the first text on the screen would wait for the list. Where there is none,
/// or no thread to be had, Qt deals with it at that first text.
std::jthread readFontListAhead();

} // namespace zorvo
