#pragma once

#include "base/XmlDocument.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace zorvo {

/// A product status document with its look-ups. As with LibraryDocument, each gives what its XPath expression
/// would give, through an index made at the first question.
class StatusDocument {
public:
    explicit StatusDocument(XmlDocument document);

    /// ZorvoMSOfficeProductsStatus/ProductGroup
    std::vector<XmlNode> groups() const;
    /// //ProductRegistryNode[@Version="..." and child::ProductKey="..."], the first one, or null.
    XmlNode productYear(const std::string& sVersion, const std::string& sProductKey) const;
    /// The `Version` texts of
    /// ZorvoMSOfficeProductsStatus/ProductGroup/ProductRegistryNode[child::ProductKey="..."]: groups that lie
    /// in other groups don't count. An entry without a version gives an empty text.
    std::vector<std::string> topLevelVersions(const std::string& sProductKey) const;
    /// Some ZorvoMSOfficeProductsStatus/ProductGroup/ProductRegistryNode[@SWDType="True"] is there.
    bool hasSwdProducts() const;

private:
    struct Index {
        std::unordered_map<std::string, XmlCursor> byVersionAndKey;
        std::unordered_map<std::string, std::vector<std::string>> topLevelVersionsByKey;
    };

    const Index& index() const;
    void indexEntry(XmlCursor entry, bool bTopLevel) const;

    XmlDocument document_;
    mutable std::optional<Index> index_;
};

} // namespace zorvo
