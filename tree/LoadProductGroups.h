#pragma once

#include "base/XmlDocument.h"

#include <string>
#include <vector>

namespace zorvo {

class ListBarGroups;
class StatusDocument;
class TreeNodes;

/// The file of a catalogue, in a product's template folder and among the program's own.
inline constexpr const char* kLibraryFileName = "Zorvo Library.xml";

/// Adds a node for each `ProductGroup` element: the group, the groups in it, then its products. The groups go
/// under the node with key `sParentKey`, or are roots when it is empty. `listBar` gets an entry per group
/// unless it is null or was built before. With `statusCopy` given, only the newest version of a product
/// stays. A failure is reported and ends the level it happened on.
void LoadProductGroups(const std::vector<XmlNode>& groupNodes, TreeNodes& tree, ListBarGroups* listBar,
                       bool bAllOfferings, const StatusDocument* statusCopy, const std::string& sParentKey);

} // namespace zorvo
