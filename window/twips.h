#pragma once

namespace zorvo {

/// Stored lengths are twips: 15 to a logical pixel at 96 dpi.
inline constexpr int kTwipsPerPixel = 15;

constexpr int toPixels(int twips)
{
    return twips / kTwipsPerPixel;
}

constexpr int toTwips(int pixels)
{
    return pixels * kTwipsPerPixel;
}

} // namespace zorvo
