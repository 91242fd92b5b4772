#include "base/XmlDocument.h"

#include "base/RunTimeError.h"
#include "base/xmlParsing.h"

#include <libxml/tree.h>
#include <libxml/xpath.h>

#include <utility>

namespace zorvo {

namespace {

const xmlChar* toXml(const char* text)
{
    return reinterpret_cast<const xmlChar*>(text);
}

const char* fromXml(const xmlChar* text)
{
    return reinterpret_cast<const char*>(text);
}

std::string takeText(xmlChar* text)
{
    std::string result = text ? fromXml(text) : "";
    xmlFree(text);
    return result;
}

struct XPathContextDeleter {
    void operator()(xmlXPathContext* context) const { xmlXPathFreeContext(context); }
};
struct XPathObjectDeleter {
    void operator()(xmlXPathObject* object) const { xmlXPathFreeObject(object); }
};
struct XPathExpressionDeleter {
    void operator()(xmlXPathCompExpr* expression) const { xmlXPathFreeCompExpr(expression); }
};
struct BufferDeleter {
    void operator()(xmlBuffer* buffer) const { xmlBufferFree(buffer); }
};

bool isOfName(const xmlNode& node, std::string_view name)
{
    return node.type == XML_ELEMENT_NODE && !node.ns && name == fromXml(node.name);
}

void ignoreStructuredError(void* /*user*/, xmlError* /*error*/) {}

std::unique_ptr<xmlXPathCompExpr, XPathExpressionDeleter> compile(const std::string& xpath,
                                                                  xmlXPathContext* context)
{
    std::unique_ptr<xmlXPathCompExpr, XPathExpressionDeleter> compiled(
        xmlXPathCtxtCompile(context, toXml(xpath.c_str())));
    if (!compiled)
        throw RunTimeError(kInvalidCall, "The expression \"" + xpath + "\" is not valid XPath");
    return compiled;
}

std::vector<xmlNode*> evaluate(xmlDoc* document, xmlNode* start, const std::string& xpath)
{
    const std::unique_ptr<xmlXPathContext, XPathContextDeleter> context(xmlXPathNewContext(document));
    if (!context)
        throw std::bad_alloc();
    context->error = ignoreStructuredError;
    const auto compiled = compile(xpath, context.get());
    if (!document)
        return {};
    context->node = start;
    const std::unique_ptr<xmlXPathObject, XPathObjectDeleter> found(
        xmlXPathCompiledEval(compiled.get(), context.get()));
    if (!found || found->type != XPATH_NODESET)
        throw RunTimeError(kInvalidCall, "The expression \"" + xpath + "\" does not select nodes");
    std::vector<xmlNode*> nodes;
    if (!found->nodesetval)
        return nodes;
    // The evaluation ends with the nodes in document order. Namespace nodes belong to the result alone.
    nodes.reserve(static_cast<std::size_t>(found->nodesetval->nodeNr));
    for (int n = 0; n < found->nodesetval->nodeNr; ++n) {
        if (found->nodesetval->nodeTab[n]->type != XML_NAMESPACE_DECL)
            nodes.push_back(found->nodesetval->nodeTab[n]);
    }
    return nodes;
}

} // namespace

XmlNode::XmlNode(std::shared_ptr<_xmlDoc> document, _xmlNode* node)
    : document_(node ? std::move(document) : nullptr)
    , node_(node)
{
}

_xmlNode* XmlNode::checked() const
{
    if (!node_)
        throw RunTimeError(kObjectNotSet);
    return node_;
}

std::string XmlNode::baseName() const
{
    return isElement() ? fromXml(node_->name) : "";
}

bool XmlNode::isElement() const
{
    return checked()->type == XML_ELEMENT_NODE;
}

std::string XmlNode::text() const
{
    return takeText(xmlNodeGetContent(checked()));
}

std::string XmlNode::attribute(const char* name) const
{
    auto value = attributeIfAny(name);
    if (!value)
        throw RunTimeError(kObjectNotSet);
    return *std::move(value);
}

std::optional<std::string> XmlNode::attributeIfAny(const char* name) const
{
    xmlChar* value = isElement() ? xmlGetNoNsProp(node_, toXml(name)) : nullptr;
    return value ? std::optional(takeText(value)) : std::nullopt;
}

XmlNode XmlNode::firstChild() const
{
    return {document_, checked()->children};
}

XmlNode XmlNode::nextSibling() const
{
    return {document_, checked()->next};
}

XmlNode XmlNode::childElement(std::string_view name) const
{
    for (xmlNode* child = checked()->children; child; child = child->next) {
        if (isOfName(*child, name))
            return {document_, child};
    }
    return {};
}

std::string XmlNode::childText(std::string_view name) const
{
    return childElement(name).text();
}

std::vector<XmlNode> XmlNode::childElements(std::string_view name) const
{
    std::vector<XmlNode> found;
    for (xmlNode* child = checked()->children; child; child = child->next) {
        if (isOfName(*child, name))
            found.push_back(XmlNode(document_, child));
    }
    return found;
}

XmlNode XmlNode::parent() const
{
    xmlNode* above = checked()->parent;
    return above && above->type == XML_ELEMENT_NODE ? XmlNode(document_, above) : XmlNode();
}

std::vector<XmlNode> XmlNode::selectNodes(const std::string& xpath) const
{
    std::vector<XmlNode> nodes;
    for (xmlNode* node : evaluate(document_.get(), checked(), xpath))
        nodes.push_back(XmlNode(document_, node));
    return nodes;
}

XmlNode XmlNode::selectSingleNode(const std::string& xpath) const
{
    const auto found = evaluate(document_.get(), checked(), xpath);
    return found.empty() ? XmlNode() : XmlNode(document_, found.front());
}

std::string XmlNode::xml() const
{
    const std::unique_ptr<xmlBuffer, BufferDeleter> buffer(xmlBufferCreate());
    if (!buffer || xmlNodeDump(buffer.get(), document_.get(), checked(), 0, 0) < 0)
        throw std::bad_alloc();
    return fromXml(xmlBufferContent(buffer.get()));
}

bool XmlDocument::loadXML(std::string_view text)
{
    document_ = parseXml(text, "UTF-8");
    return !isEmpty();
}

bool XmlDocument::loadBytes(std::string_view bytes)
{
    document_ = parseXml(bytes, nullptr);
    return !isEmpty();
}

XmlNode XmlDocument::documentElement() const
{
    return document_ ? XmlNode(document_, xmlDocGetRootElement(document_.get())) : XmlNode();
}

std::vector<XmlNode> XmlDocument::selectNodes(const std::string& xpath) const
{
    std::vector<XmlNode> nodes;
    for (xmlNode* node : evaluate(document_.get(), reinterpret_cast<xmlNode*>(document_.get()), xpath))
        nodes.push_back(XmlNode(document_, node));
    return nodes;
}

XmlNode XmlDocument::selectSingleNode(const std::string& xpath) const
{
    const auto found = evaluate(document_.get(), reinterpret_cast<xmlNode*>(document_.get()), xpath);
    return found.empty() ? XmlNode() : XmlNode(document_, found.front());
}

std::string XmlDocument::xml() const
{
    if (!document_)
        return {};
    xmlChar* text = nullptr;
    int length = 0;
    xmlDocDumpMemoryEnc(document_.get(), &text, &length, "UTF-8");
    return takeText(text);
}

} // namespace zorvo
