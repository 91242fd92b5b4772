#pragma once

namespace zorvo {

/// The machine has a library product. False before the tree was loaded.
bool HasSWDProducts();

} // namespace zorvo
