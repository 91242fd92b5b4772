#pragma once

#include <functional>

namespace zorvo {

/// What the engagement list asks of the floors above it. Empty functions do nothing.
struct EngagementHost {
    std::function<void()> saveSettings;
    /// The main window's tree follows a change of the view; a main window that isn't there is loaded.
    std::function<void()> reloadTree;
};

EngagementHost& engagementHost();

} // namespace zorvo
