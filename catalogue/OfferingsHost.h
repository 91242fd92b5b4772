#pragma once

#include <functional>

namespace zorvo {

class TreeNodes;

/// What the offerings form asks of the floors above it. Empty functions do nothing.
struct OfferingsHost {
    /// Fills the tree with all offerings.
    std::function<void(TreeNodes&)> loadTree;
    /// Lets go of the office applications of the last creation.
    std::function<void()> releaseOffice;
};

OfferingsHost& offeringsHost();

} // namespace zorvo
