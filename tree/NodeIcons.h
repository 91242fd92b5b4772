#pragma once

#include <string>

namespace zorvo {

class TreeNodes;

/// Image indexes of the icons that nodes show, looked up once for a whole tree.
struct NodeIcons {
    explicit NodeIcons(const TreeNodes& tree);

    /// By the last three characters of the template's file name, whatever their case.
    int ofTemplate(const std::string& sFile) const;

    int nProduct;
    int nFolder;
    int nWord;
    int nExcel;
    int nOther;
};

} // namespace zorvo
