#pragma once

#include <string>

namespace zorvo {

class TreeNodes;

/// A click on a list bar entry: the first node whose key is the file-name part of `sEntryKey`, without
/// extension, is expanded and selected, and the node that was selected before is deselected, so that the
/// click doesn't add to the selection. Without such a node nothing changes.
void jumpToListBarEntry(TreeNodes& tree, const std::string& sEntryKey);

} // namespace zorvo
