#pragma once

#include <string>

/// The icons of tree and list bar: every `.ico` among the program's pictures, by file name, so that an
/// installation changes every picture by replacing files.
namespace zorvo {

class ListBarGroups;
class TreeNodes;

/// Adds the icons to the tree's image list. A failure is reported, and what was added before it stays; a tree
/// that has its icons already fails at the first.
void LoadTreeImages(TreeNodes& tree);
/// Replaces the list bar's icons; failures as above.
void LoadListBarImages(ListBarGroups& listBar);

/// Index in the image list, case-blind; -1, which shows no image, when there is no such icon.
int GetTreeImageIndex(const TreeNodes& tree, const std::string& sIconName);
int GetListBarImageIndex(const ListBarGroups& listBar, const std::string& sIconName);

} // namespace zorvo
