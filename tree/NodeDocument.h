#pragma once

#include "base/XmlDocument.h"
#include "tree/OwnLibraries.h"

#include <memory>
#include <string>

namespace zorvo {

class TreeNode;
class TreeWindow;

/// The catalogue of a node's key. `sGuid` is what the catalogue knows the node by; `bOwnDocument` says that
/// the catalogue is a product's own copy, whose path stands in the key behind a backquote. Otherwise it is
/// the central one, or null when no tree was loaded.
std::shared_ptr<const LibraryDocument> GetLibraryForKey(const std::string& sKey, std::string& sGuid,
                                                        bool& bOwnDocument, OwnLibraries& libraries);

/// The catalogue's element of a folder or document node; null for other nodes, and when the catalogue has
/// none of that `Guid`. It keeps its catalogue alive. Throws RunTimeError 91 when no tree was loaded.
XmlNode GetNodeDocument(const TreeNode& node, OwnLibraries& libraries);
XmlNode GetNodeDocument(const TreeNode& node);

/// Follows the tree's selection: the description of the node, and the tool that makes new documents.
void ShowNodeDescription(TreeWindow& window, const TreeNode& node);

} // namespace zorvo
