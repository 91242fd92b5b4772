#pragma once

#include <cstdint>

namespace zorvo {

/// What `setMousePointer` takes.
inline constexpr std::int16_t kDefaultPointer = 0;
inline constexpr std::int16_t kHourglass = 11;

/// Counts the busy requests of the whole program. The first one shows the wait pointer and disables the main
/// form, the last release undoes both.
class clsMousePointer {
public:
    ~clsMousePointer();

    /// Releases until nothing is busy.
    void ClearMousePointer();
    /// While True the main form's enabled state is left alone, and so no busy pointer loads that form.
    void SetModalDialogState(bool b);
    /// 11 (hourglass) and 13 (arrow with hourglass) set the busy state, any other value releases it once.
    void setMousePointer(std::int16_t nValue);
    /// The pointer that shows, 0 when nothing is busy.
    std::int16_t MousePointer() const { return nPointer_; }

private:
    void EnableMainForm(bool bEnabled);

    std::int16_t nPointer_ = 0;
    std::int16_t nCount_ = 0;
    bool bModalState_ = false;
};

/// The one instance, made on first use.
clsMousePointer& goMousePointer();

/// The screen's pointer over all windows of the program: 0 is the default. Nothing happens in a console
/// program.
std::int16_t screenPointer();
void setScreenPointer(std::int16_t nValue);

} // namespace zorvo
