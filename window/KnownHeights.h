#pragma once

#include <array>
#include <cstddef>

namespace zorvo {

/// The heights of a text at a few widths. Nested layouts ask for them again and again, and each answer breaks
/// the text into lines.
class KnownHeights {
public:
    /// `measure` gives the height at a width that isn't known. All in pixels.
    template <typename Measure>
    int at(int width, Measure measure)
    {
        for (const Height& each : heights_)
            if (each.nWidth == width)
                return each.nHeight;
        Height& oldest = heights_[nOldest_];
        nOldest_ = (nOldest_ + 1) % heights_.size();
        oldest = {width, measure(width)};
        return oldest.nHeight;
    }

    void forget() { heights_ = {}; }

private:
    struct Height {
        int nWidth = -1;
        int nHeight = 0;
    };

    std::array<Height, 8> heights_;
    std::size_t nOldest_ = 0;
};

} // namespace zorvo
