#pragma once

#include <optional>
#include <string>
#include <string_view>

struct _xmlNode; // NOLINT(bugprone-reserved-identifier): libxml2's own name

namespace zorvo {

/// A place in a parsed document that owns nothing: a step costs a pointer. For walks over whole catalogues,
/// where XmlNode's hold on the document at each step would cost more than the step. Good as long as the
/// XmlDocument or an XmlNode of it lives. Nothing but `operator bool` may be asked of a null one.
class XmlCursor {
public:
    XmlCursor() = default;
    explicit XmlCursor(_xmlNode* node)
        : node_(node)
    {
    }

    explicit operator bool() const { return node_ != nullptr; }
    _xmlNode* node() const { return node_; }

    /// Child elements in document order; texts and comments are passed over.
    XmlCursor firstElement() const;
    XmlCursor nextElement() const;
    /// The enclosing element, or null.
    XmlCursor parent() const;
    /// The element behind this one in document order, within `top`: children first.
    XmlCursor nextInDocument(XmlCursor top) const;

    /// Name without prefix.
    std::string_view baseName() const;
    /// An XPath step by this name takes the element: the name is exact and lies in no namespace.
    bool isNamed(std::string_view name) const;

    /// The first child element of that name, as an XPath step takes it, or null.
    XmlCursor child(std::string_view name) const;
    /// All text below, entities resolved, not trimmed.
    std::string text() const;
    /// Without the blanks around it.
    std::string trimmedText() const;
    /// The attribute that an XPath step by this name takes.
    std::optional<std::string> attribute(std::string_view name) const;

    /// The line of the file that it stands on, from 1.
    long line() const;

    friend bool operator==(XmlCursor a, XmlCursor b) { return a.node_ == b.node_; }

private:
    /// The text where it lies in one piece, as it nearly always does.
    std::optional<std::string_view> plainText() const;

    _xmlNode* node_ = nullptr;
};

} // namespace zorvo
