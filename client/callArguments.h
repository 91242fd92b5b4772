#pragma once

#include "platform/Automation.h"

#include <optional>
#include <ostream>
#include <string>

/// Arguments and results of an operation as people write and read them.
namespace zorvo {

/// The value that `sText` says for an argument of the bus type `sType`; nothing when it says none.
///
/// | Type | Text |
/// |---|---|
/// | s o | the text |
/// | b | true, false, 1, 0 or -1, whatever the case |
/// | y n q i u x t d | a number in the type's range, whole ones also hexadecimal after 0x |
/// | as | [first,second], a JSON array of texts, or a text alone as the only entry; [] is empty |
/// | v | true and false are Booleans, a number is one, '' is missing, anything else is the text |
std::optional<Value> argumentFromText(const std::string& sType, const std::string& sText);

/// One line per value or array entry; nothing for a missing one.
void printResult(const Value& value, std::ostream& out);

} // namespace zorvo
