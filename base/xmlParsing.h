#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct _xmlDoc; // NOLINT(bugprone-reserved-identifier): libxml2's own name

namespace zorvo {

/// What is wrong with a text that isn't well formed, and where: lines count from 1, 0 is no line at all.
struct XmlFault {
    int nLine = 0;
    std::string sText;
};

/// The first fault of a file's bytes; nothing for a well-formed document.
std::optional<XmlFault> xmlFault(std::string_view bytes);

/// The parsed document, or null for bytes that are not a well-formed document to their end. `encoding`
/// overrides what the bytes declare; null goes by the declaration. No other file is opened, and what entities
/// may add is bounded, in time as in room. A null document's `fault`, where one is wanted, tells why.
std::shared_ptr<_xmlDoc> parseXml(std::string_view bytes, const char* encoding, XmlFault* fault = nullptr);

} // namespace zorvo
