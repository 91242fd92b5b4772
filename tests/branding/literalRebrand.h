#pragma once

#include <string>

namespace zorvo {

/// The substitution as its rule is written, one pass over the text per token: what the fast form must equal.
std::string literalRebrand(const std::string& sText, bool bEscapeAmpersand);

} // namespace zorvo
