#pragma once

#include "tree/SelectedDocument.h"

#include <string>
#include <vector>

namespace zorvo {

/// The documents of a selection file as a partner's session hands it over: the XML text itself, or that text
/// as one line in double quotes with "|" for each double quote of its own. An element that a document lacks
/// is an empty text. Throws RunTimeError when the file can't be read (53 and its kind) or holds no selection
/// document (13).
std::vector<SelectedDocument> readSelectionFile(const std::string& sPath);

} // namespace zorvo
