#include "tree/NodeIcons.h"

#include "base/text.h"
#include "tree/treeImages.h"

namespace zorvo {

NodeIcons::NodeIcons(const TreeNodes& tree)
    : nProduct(GetTreeImageIndex(tree, "Product16.ico"))
    , nFolder(GetTreeImageIndex(tree, "Open Chapter16.ico"))
    , nWord(GetTreeImageIndex(tree, "Word16.ico"))
    , nExcel(GetTreeImageIndex(tree, "Excel16.ico"))
    , nOther(GetTreeImageIndex(tree, "Default Page16.ico"))
{
}

int NodeIcons::ofTemplate(const std::string& sFile) const
{
    const std::string sEnding = lastCharacters(sFile, 3);
    if (equalNoCase(sEnding, "XLT"))
        return nExcel;
    return equalNoCase(sEnding, "DOT") ? nWord : nOther;
}

} // namespace zorvo
