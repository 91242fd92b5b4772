#pragma once

#include <cstdint>
#include <optional>

/// The main window's place between two runs, kept per company in the settings store. Lengths are twips.
namespace zorvo {

enum class WindowState : std::int16_t { normal = 0, minimised = 1, maximised = 2 };

struct WindowPlace {
    int nLeft = 0;
    int nTop = 0;
    int nWidth = 0;
    int nHeight = 0;
};

struct MainGeometry {
    WindowState state = WindowState::maximised;
    /// The place to take before the state is set; absent when the window only opens maximised.
    std::optional<WindowPlace> place;
};

/// What the next window shall look like: a first start and a place that is too small to be meant open
/// maximised, and a window is never restored as minimised. Throws RunTimeError 6 when a stored number is past
/// 16 bits.
MainGeometry restoreMainGeometry();

/// Stores state and place; a minimised window leaves the stored place as it was. A length past 16 bits is
/// stored as the largest that fits, so that a large screen can't write what the next start can't read.
void saveMainGeometry(WindowState state, const WindowPlace& place);

} // namespace zorvo
