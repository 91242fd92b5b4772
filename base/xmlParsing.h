#pragma once

#include <memory>
#include <string_view>

struct _xmlDoc; // NOLINT(bugprone-reserved-identifier): libxml2's own name

namespace zorvo {

/// The parsed document, or null for bytes that are not a well-formed document to their end. `encoding`
/// overrides what the bytes declare; null goes by the declaration. No other file is opened, and what entities
/// may add is bounded, in time as in room.
std::shared_ptr<_xmlDoc> parseXml(std::string_view bytes, const char* encoding);

} // namespace zorvo
