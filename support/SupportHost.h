#pragma once

#include <functional>
#include <string>

namespace zorvo {

/// What the About box and its report ask of the floors above them.
struct SupportHost {
    /// The main window's caption; reading it loads the main window when it isn't there.
    std::function<std::string()> mainCaption;
    /// The main window's quick tour, which likewise loads it.
    std::function<void()> quickTour;
};

SupportHost& supportHost();

} // namespace zorvo
