#pragma once

#include <string>

namespace zorvo {

/// What the office wouldn't say by itself: that a file is missing, empty, or not what its name promises.
/// Throws RunTimeError: `nNotFound` for a missing file, 70 for one that mustn't be read, 75 for the rest.
void checkDocumentFile(const std::string& native, int nNotFound);

} // namespace zorvo
