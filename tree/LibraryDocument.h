#pragma once

#include "base/XmlDocument.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace zorvo {

/// A library catalogue with its look-ups. Each gives what its XPath expression would give; the work of the
/// expression is done once, by an index that is made at the first question, since a catalogue holds a hundred
/// thousand documents and is asked for each.
///
/// A text with the expression's own quotation mark in it goes through XPath itself: it makes the expression
/// malformed (RunTimeError 5) or gives it another meaning.
class LibraryDocument {
public:
    explicit LibraryDocument(XmlDocument document);

    /// Library/Product[@Acronym="..." and @Year="..."]
    std::vector<XmlNode> products(const std::string& sAcronym, const std::string& sYear) const;
    /// .//Folder[@Guid='...'], the first one, or null.
    XmlNode folder(const std::string& sGuid) const;
    /// .//Document[@Guid='...'], the first one, or null.
    XmlNode document(const std::string& sGuid) const;

private:
    using ByGuid = std::unordered_map<std::string, XmlCursor>;
    struct GuidIndex {
        ByGuid folders;
        ByGuid documents;
    };
    using ProductIndex = std::unordered_map<std::string, std::vector<XmlCursor>>;

    const ProductIndex& productIndex() const;
    const GuidIndex& guidIndex() const;
    XmlNode byGuid(const char* element, ByGuid GuidIndex::*index, const std::string& sGuid) const;

    XmlDocument document_;
    mutable std::optional<ProductIndex> products_;
    mutable std::optional<GuidIndex> guids_;
};

} // namespace zorvo
