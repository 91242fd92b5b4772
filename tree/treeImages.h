#pragma once

#include <string>

/// The icons of tree and list bar: every `.ico` among the program's pictures, by file name, so that an
/// installation changes every picture by replacing files.
namespace zorvo {

class ImageList;
class ListBarGroups;
class TreeNodes;

/// Adds the icons to the tree's image list. A failure is reported, and what was added before it stays; a tree
/// that has its icons already fails at the first. `read` may be the list bar's, when that has just been
/// loaded: no file is read twice.
void LoadTreeImages(TreeNodes& tree, const ImageList* read = nullptr);
/// Replaces the list bar's icons; failures as above.
void LoadListBarImages(ListBarGroups& listBar);

/// Index in the image list, case-blind; -1, which shows no image, when there is no such icon.
int GetTreeImageIndex(const TreeNodes& tree, const std::string& sIconName);
int GetListBarImageIndex(const ListBarGroups& listBar, const std::string& sIconName);

} // namespace zorvo
