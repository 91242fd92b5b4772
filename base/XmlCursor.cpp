#include "base/XmlCursor.h"

#include "base/text.h"

#include <libxml/tree.h>

namespace zorvo {

namespace {

std::string_view view(const xmlChar* text)
{
    return text ? std::string_view(reinterpret_cast<const char*>(text)) : std::string_view();
}

xmlNode* elementAtOrBehind(xmlNode* node)
{
    while (node && node->type != XML_ELEMENT_NODE)
        node = node->next;
    return node;
}

bool isText(const xmlNode& node)
{
    return node.type == XML_TEXT_NODE || node.type == XML_CDATA_SECTION_NODE;
}

/// The content below an element or attribute, where it is none or one piece of text.
std::optional<std::string_view> onePiece(const xmlNode* content)
{
    if (!content)
        return std::string_view();
    if (content->next || !isText(*content))
        return std::nullopt;
    return view(content->content);
}

std::string joinedText(const xmlNode* node)
{
    xmlChar* text = xmlNodeGetContent(node);
    std::string result(view(text));
    xmlFree(text);
    return result;
}

} // namespace

XmlCursor XmlCursor::firstElement() const
{
    return XmlCursor(elementAtOrBehind(node_->children));
}

XmlCursor XmlCursor::nextElement() const
{
    return XmlCursor(elementAtOrBehind(node_->next));
}

XmlCursor XmlCursor::parent() const
{
    xmlNode* above = node_->parent;
    return XmlCursor(above && above->type == XML_ELEMENT_NODE ? above : nullptr);
}

XmlCursor XmlCursor::nextInDocument(XmlCursor top) const
{
    if (const XmlCursor below = firstElement())
        return below;
    for (XmlCursor at = *this; at && !(at == top); at = at.parent()) {
        if (const XmlCursor next = at.nextElement())
            return next;
    }
    return {};
}

std::string_view XmlCursor::baseName() const
{
    return view(node_->name);
}

bool XmlCursor::isNamed(std::string_view name) const
{
    return !node_->ns && baseName() == name;
}

XmlCursor XmlCursor::child(std::string_view name) const
{
    XmlCursor at = firstElement();
    while (at && !at.isNamed(name))
        at = at.nextElement();
    return at;
}

std::optional<std::string_view> XmlCursor::plainText() const
{
    return onePiece(node_->children);
}

std::string XmlCursor::text() const
{
    const auto plain = plainText();
    return plain ? std::string(*plain) : joinedText(node_);
}

std::string XmlCursor::trimmedText() const
{
    const auto plain = plainText();
    return trimBlanks(plain ? *plain : std::string_view(joinedText(node_)));
}

std::optional<std::string> XmlCursor::attribute(std::string_view name) const
{
    for (const xmlAttr* at = node_->properties; at; at = at->next) {
        if (at->ns || view(at->name) != name)
            continue;
        const auto plain = onePiece(at->children);
        return plain ? std::string(*plain) : joinedText(reinterpret_cast<const xmlNode*>(at));
    }
    return std::nullopt;
}

long XmlCursor::line() const
{
    return xmlGetLineNo(node_);
}

} // namespace zorvo
