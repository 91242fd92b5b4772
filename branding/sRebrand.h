#pragma once

#include <string>

namespace zorvo {

/// The text in the running company's wording: its own pairs of the caption document first, then its name for
/// the house word. For every company four left-over option phrases are taken out. `bEscapeAmpersand` is for
/// captions in which "&" marks an access key. Loads the caption document when another company than the
/// default one runs and none is loaded. Throws RunTimeError 6 when the pairs never end.
std::string sRebrand(const std::string& sText, bool bEscapeAmpersand);

/// The first character is one of A..Z and a..z. False for an empty text.
bool bIsLetter(const std::string& s);

} // namespace zorvo
