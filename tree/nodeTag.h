#pragma once

namespace zorvo {

/// What a node of the tree is.
enum NodeTag : int {
    kTagGroupOrProduct = 1,
    kTagFolder = 2,
    kTagDocument = 3,
};

} // namespace zorvo
