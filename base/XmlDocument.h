#pragma once

#include "base/XmlCursor.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct _xmlDoc;  // NOLINT(bugprone-reserved-identifier): libxml2's own name
struct _xmlNode; // NOLINT(bugprone-reserved-identifier): libxml2's own name

namespace zorvo {

/// A node of a parsed document. It keeps the whole document alive, so an element outlives the XmlDocument it
/// was selected from. A default-made one is null: every question but `isNull` then throws RunTimeError 91.
class XmlNode {
public:
    XmlNode() = default;

    bool isNull() const { return node_ == nullptr; }
    explicit operator bool() const { return node_ != nullptr; }

    /// Name without prefix; empty for text nodes.
    std::string baseName() const;
    bool isElement() const;
    /// All text below the node, entities resolved, as the parser gives it (not trimmed).
    std::string text() const;
    /// The attribute of that name without a prefix. Throws RunTimeError 91 when it is missing.
    std::string attribute(const char* name) const;
    std::optional<std::string> attributeIfAny(const char* name) const;

    /// All child nodes in document order, text and comments included.
    XmlNode firstChild() const;
    XmlNode nextSibling() const;
    /// The first child element of that name (exact, in no namespace, as in XPath), or null. Costs no XPath.
    XmlNode childElement(std::string_view name) const;
    /// Its text; throws RunTimeError 91 when there is no such child.
    std::string childText(std::string_view name) const;
    std::vector<XmlNode> childElements(std::string_view name) const;
    XmlNode parent() const;

    /// XPath relative to this node. Throws RunTimeError 5 for an expression that is malformed.
    std::vector<XmlNode> selectNodes(const std::string& xpath) const;
    XmlNode selectSingleNode(const std::string& xpath) const;

    /// The node as XML text, with no declaration.
    std::string xml() const;

    /// For a walk below this node: the element itself, and back again. A null node gives a null cursor.
    XmlCursor cursor() const { return XmlCursor(node_); }
    XmlNode at(XmlCursor cursor) const { return {document_, cursor.node()}; }

    friend bool operator==(const XmlNode& a, const XmlNode& b) { return a.node_ == b.node_; }

private:
    friend class XmlDocument;
    XmlNode(std::shared_ptr<_xmlDoc> document, _xmlNode* node);
    _xmlNode* checked() const;

    std::shared_ptr<_xmlDoc> document_;
    _xmlNode* node_ = nullptr;
};

/// An XML document with XPath. A text that is not well formed leaves the document empty: it is never
/// half-read. No network, no external entities (a reference to one is as to one that isn't declared), no
/// entity expansion beyond the parser's limits.
class XmlDocument {
public:
    /// Text that is UTF-8 already, whatever its declaration says. False (and empty) when not well formed.
    bool loadXML(std::string_view text);
    /// The bytes of a file: UTF-8, UTF-16, windows-1252 or ISO-8859-1 by declaration or byte order mark.
    bool loadBytes(std::string_view bytes);

    bool isEmpty() const { return document_ == nullptr; }
    XmlNode documentElement() const;

    /// A node that a walk from `documentElement().cursor()` reached.
    XmlNode at(XmlCursor cursor) const { return {document_, cursor.node()}; }

    /// XPath from the document node. On an empty document nothing is found; a malformed expression throws
    /// RunTimeError 5 in either case.
    std::vector<XmlNode> selectNodes(const std::string& xpath) const;
    XmlNode selectSingleNode(const std::string& xpath) const;

    /// The whole document as UTF-8 text, declaration included; empty for an empty document.
    std::string xml() const;

private:
    std::shared_ptr<_xmlDoc> document_;
};

} // namespace zorvo
