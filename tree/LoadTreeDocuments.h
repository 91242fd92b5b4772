#pragma once

#include "base/XmlDocument.h"

#include <string>

namespace zorvo {

struct NodeIcons;
class TreeNode;
class TreeNodes;

/// Adds the folders and documents below a catalogue element, in its order and to any depth, under the node
/// with key `sParentKey`. A node's key is its `Guid` and `suffix`, which ties it to the catalogue it came
/// from. A failure (a key met twice, a `Guid`, `Name` or `File` that is missing) is reported and ends its own
/// level; the level above goes on with its next child.
void LoadTreeDocuments(TreeNodes& tree, const XmlNode& parentElement, const std::string& sParentKey,
                       const std::string& suffix);

/// The same for a walk that has its icons already. `parentElement` must outlive the call.
void LoadTreeDocuments(TreeNodes& tree, const NodeIcons& icons, XmlCursor parentElement,
                       const std::string& sParentKey, const std::string& suffix);

/// Adds a node below another. Throws RunTimeError 35601 for an empty relative, which the collection would
/// take for none.
TreeNode& addChildNode(TreeNodes& tree, const std::string& sRelative, const std::string& sKey,
                       const std::string& sText, int nImage, int nTag);

} // namespace zorvo
