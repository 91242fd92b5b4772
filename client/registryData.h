#pragma once

#include "platform/Registry.h"

#include <optional>
#include <string>
#include <string_view>

/// Registry values as people write and read them.
///
/// | Type | Text |
/// |---|---|
/// | REG_SZ, REG_EXPAND_SZ | the text |
/// | REG_MULTI_SZ | written with \0 between the texts, read one per line |
/// | REG_DWORD, REG_DWORD_BIG_ENDIAN, REG_QWORD | decimal, or hexadecimal after 0x; read as a signed decimal
/// | | REG_BINARY, REG_NONE, any other | two hexadecimal digits a byte, blanks or commas between them or not
/// |
namespace zorvo {

/// The type of a name such as "REG_DWORD", whatever its case.
std::optional<RegistryType> registryTypeOfName(std::string_view name);
/// "REG_" and the number for a type that has no name.
std::string registryTypeName(RegistryType type);

/// The bytes to store, or nothing when the text doesn't say a value of that type.
std::optional<std::string> registryDataFromText(RegistryType type, std::string_view text);

enum class RegistryTextLayout { lines, oneLine };

/// In one line the texts of a REG_MULTI_SZ are parted by \0.
std::string registryDataToText(RegistryType type, const std::string& data, RegistryTextLayout layout);

} // namespace zorvo
