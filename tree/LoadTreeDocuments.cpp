#include "tree/LoadTreeDocuments.h"

#include "base/failure.h"
#include "base/text.h"
#include "tree/NodeIcons.h"
#include "tree/nodeTag.h"
#include "tree/requiredText.h"
#include "window/TreeNodes.h"

#include <optional>

namespace zorvo {

namespace {

constexpr int kElementNotFound = 35601;

std::optional<NodeTag> kindOf(XmlCursor element)
{
    if (equalNoCase(element.baseName(), "Document"))
        return kTagDocument;
    if (equalNoCase(element.baseName(), "Folder"))
        return kTagFolder;
    return std::nullopt;
}

} // namespace

TreeNode& addChildNode(TreeNodes& tree, const std::string& sRelative, const std::string& sKey,
                       const std::string& sText, int nImage, int nTag)
{
    if (sRelative.empty())
        throw RunTimeError(kElementNotFound, "Element not found");
    return tree.add(sRelative, sKey, sText, nImage, nTag);
}

void LoadTreeDocuments(TreeNodes& tree, const XmlNode& parentElement, const std::string& sParentKey,
                       const std::string& suffix)
{
    LoadTreeDocuments(tree, NodeIcons(tree), parentElement.cursor(), sParentKey, suffix);
}

void LoadTreeDocuments(TreeNodes& tree, const NodeIcons& icons, XmlCursor parentElement,
                       const std::string& sParentKey, const std::string& suffix)
{
    try {
        for (XmlCursor child = parentElement.firstElement(); child; child = child.nextElement()) {
            const auto kind = kindOf(child);
            if (!kind)
                continue;
            const int nImage =
                *kind == kTagFolder ? icons.nFolder : icons.ofTemplate(requiredText(child, "File"));
            const std::string sKey = requiredAttribute(child, "Guid") + suffix;
            addChildNode(tree, sParentKey, sKey, requiredText(child, "Name"), nImage, *kind);
            LoadTreeDocuments(tree, icons, child, sKey, suffix);
        }
    } catch (const RunTimeError& error) {
        recordFailure(error);
        ReportError("TreeSupport.LoadTreeDocuments");
    }
}

} // namespace zorvo
