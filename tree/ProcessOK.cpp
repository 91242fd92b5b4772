#include "tree/ProcessOK.h"

#include "base/failure.h"
#include "base/sessionState.h"
#include "base/text.h"
#include "tree/NodeDocument.h"
#include "tree/SelectedDocument.h"
#include "tree/SelectionConsumer.h"
#include "tree/TreeWindow.h"
#include "tree/nodeTag.h"
#include "tree/treeState.h"
#include "window/TreeNodes.h"
#include "window/clsMousePointer.h"

namespace zorvo {

namespace {

/// What the documents of one product have in common.
struct SelectedProduct {
    XmlCursor element;
    std::string sYear;
    std::string sType;
    /// Nothing when the machine no longer has the product.
    std::optional<std::string> sTemplatePath;
};

/// The outermost product around the element: the first one in document order.
XmlCursor enclosingProduct(XmlCursor element)
{
    XmlCursor product;
    for (XmlCursor at = element.parent(); at; at = at.parent()) {
        if (at.isNamed("Product"))
            product = at;
    }
    return product;
}

SelectedProduct readProduct(const XmlNode& product)
{
    const std::string sAcronym = product.attribute("Acronym");
    SelectedProduct result{.element = product.cursor(),
                           .sYear = product.attribute("Year"),
                           .sType = product.attribute("Type"),
                           .sTemplatePath = {}};
    const auto status = treeState().objStatusDoc;
    if (!status)
        throw RunTimeError(kObjectNotSet);
    if (const XmlNode entry = status->productYear(result.sYear, sAcronym))
        result.sTemplatePath = trimBlanks(entry.childText("TemplatePath"));
    return result;
}

/// Appends to the selection document, node by node.
class SelectionBuilder {
public:
    explicit SelectionBuilder(std::string& sSelection)
        : sSelection_(sSelection)
    {
    }

    void append(const TreeNode& node)
    {
        if (node.tag() != kTagDocument)
            return;
        XmlNode element = GetNodeDocument(node, libraries_);
        const XmlNode product = element.at(enclosingProduct(checked(element)));
        if (!product_ || !(product_->element == product.cursor()))
            product_ = readProduct(product);
        // Keeps the catalogue, and so the product's place in it, from being used again for another one.
        lastElement_ = std::move(element);
        if (product_->sTemplatePath)
            appendSelectedDocument(sSelection_,
                                   selectedDocument(lastElement_.cursor(), *product_->sTemplatePath,
                                                    product_->sType, product_->sYear));
    }

private:
    static XmlCursor checked(const XmlNode& element)
    {
        if (!element)
            throw RunTimeError(kObjectNotSet);
        return element.cursor();
    }

    std::string& sSelection_;
    OwnLibraries libraries_;
    std::optional<SelectedProduct> product_;
    XmlNode lastElement_;
};

} // namespace

void ProcessOK(TreeWindow& form)
{
    try {
        goMousePointer().setMousePointer(kHourglass);
        std::string& sSelection = sessionState().sSelectedDocuments;
        sSelection = kSelectionStart;
        SelectionBuilder builder(sSelection);
        for (const TreeNode* node : form.tree().selectedNodes())
            builder.append(*node);
        sSelection += kSelectionEnd;

        if (sessionState().bReturnSelection) {
            goMousePointer().setMousePointer(kDefaultPointer);
            form.unload();
        } else {
            consumeSelection();
            goMousePointer().setMousePointer(kDefaultPointer);
        }
    } catch (const RunTimeError& error) {
        recordFailure(error);
        goMousePointer().setMousePointer(kDefaultPointer);
        ReportError("TreeSupport.ProcessOK");
    }
}

} // namespace zorvo
