#include "tree/treeImages.h"

#include "base/failure.h"
#include "base/paths.h"
#include "base/text.h"
#include "branding/brandedFiles.h"
#include "platform/machineAccess.h"
#include "tree/FindFiles.h"
#include "window/ListBarGroups.h"
#include "window/TreeNodes.h"

#include <vector>

namespace zorvo {

namespace {

std::vector<std::string> iconFiles()
{
    std::vector<std::string> records;
    int nCount = 0;
    FindFiles(GetZorvoPath(true) + "Images\\", "*.ico", "", false, records, nCount, false);
    return records;
}

/// `read` may hold pictures of the same files.
void addIcons(ImageList& images, const ImageList* read = nullptr)
{
    for (const std::string& sPath : iconFiles()) {
        const std::string sName = sGetFileName(trimBlanks(sPath), false);
        const int nRead = read ? read->indexOf(sName) : -1;
        PicturePtr picture = nRead >= 1 ? read->item(nRead).picture : LoadBrandedPicture(sName);
        // The loader has told the user about a file that is no picture; a list entry can't be made of it.
        if (!picture)
            throw RunTimeError(kInvalidPicture);
        images.add(sName, std::move(picture));
    }
}

} // namespace

void LoadTreeImages(TreeNodes& tree, const ImageList* read)
{
    try {
        addIcons(tree.images(), read);
    } catch (const RunTimeError& error) {
        recordFailure(error);
        ReportError("TreeSupport.LoadTreeImages");
    }
}

void LoadListBarImages(ListBarGroups& listBar)
{
    try {
        listBar.images().clear();
        addIcons(listBar.images());
    } catch (const RunTimeError& error) {
        recordFailure(error);
        ReportError("TreeSupport.LoadListBarImages");
    }
}

int GetTreeImageIndex(const TreeNodes& tree, const std::string& sIconName)
{
    return tree.images().indexOf(sIconName);
}

int GetListBarImageIndex(const ListBarGroups& listBar, const std::string& sIconName)
{
    return listBar.images().indexOf(sIconName);
}

} // namespace zorvo
