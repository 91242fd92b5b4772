#pragma once

#include <functional>
#include <string>

namespace zorvo {

/// What the support report asks of the floors above it.
struct SupportHost {
    /// The main window's caption; reading it loads the main window when it isn't there.
    std::function<std::string()> mainCaption;
};

SupportHost& supportHost();

} // namespace zorvo
