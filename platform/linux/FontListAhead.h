#pragma once

#include <thread>

namespace zorvo {

/// Reads the system's list of fonts on a thread of its own while the program connects to its display: the
/// first text on the screen would wait for the list. Made before QApplication, waited for after it. Where
/// there is no thread to be had, Qt reads the list at that first text.
class FontListAhead {
public:
    FontListAhead();
    void wait();

private:
    std::jthread thread_;
};

} // namespace zorvo
