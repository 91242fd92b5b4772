#include "tree/NodeDocument.h"

#include "base/RunTimeError.h"
#include "base/sessionState.h"
#include "base/text.h"
#include "tree/TreeWindow.h"
#include "tree/nodeTag.h"
#include "tree/treeState.h"
#include "window/TreeNodes.h"

namespace zorvo {

std::shared_ptr<const LibraryDocument> GetLibraryForKey(const std::string& sKey, std::string& sGuid,
                                                        bool& bOwnDocument, OwnLibraries& libraries)
{
    const auto nBackquote = sKey.find('`');
    bOwnDocument = nBackquote != std::string::npos;
    sGuid = sKey.substr(0, nBackquote);
    return bOwnDocument ? libraries.load(sKey.substr(nBackquote + 1)) : treeState().objLibraryDoc;
}

XmlNode GetNodeDocument(const TreeNode& node, OwnLibraries& libraries)
{
    if (node.tag() != kTagFolder && node.tag() != kTagDocument)
        return {};
    std::string sGuid;
    bool bOwnDocument = false;
    const auto library = GetLibraryForKey(node.key(), sGuid, bOwnDocument, libraries);
    if (!library)
        throw RunTimeError(kObjectNotSet);
    return node.tag() == kTagFolder ? library->folder(sGuid) : library->document(sGuid);
}

XmlNode GetNodeDocument(const TreeNode& node)
{
    OwnLibraries libraries;
    return GetNodeDocument(node, libraries);
}

void ShowNodeDescription(TreeWindow& window, const TreeNode& node)
{
    // The change of the tool must not be taken for a command.
    sessionState().gbLoading = true;
    window.setNewDocumentEnabled(node.tag() == kTagDocument);
    sessionState().gbLoading = false;

    // Each key press in the tree comes here: a product's own catalogue isn't read anew for each.
    OwnLibraries& libraries = treeState().described;
    libraries.dropIfChanged();
    const XmlNode element = GetNodeDocument(node, libraries);
    const XmlCursor description = element ? element.cursor().child("Desc") : XmlCursor();
    const std::string sText = description ? description.trimmedText() : std::string();
    window.setDescription(replaceAll(sText, "&", "&&"));
}

} // namespace zorvo
