#pragma once

#include "platform/Registry.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>

/// The registry as the version report reads it. Nothing here raises.
namespace zorvo {

/// The name of the sub-key at `nIndex` (from 0), at most `nSize` bytes with its terminator; empty unless the
/// result is 0. Gives 259 past the last one.
std::int32_t nEnumSubKey(RegistryKey& hKey, std::size_t nIndex, std::string& sName, std::size_t nSize);

/// A text or a number.
using ReportValue = std::variant<std::string, std::int32_t>;

/// What `nGetValueAny` gives for a value that is neither a text nor a number.
constexpr std::int32_t kOtherValueType = -1;

/// Reads a REG_SZ, without its terminator, or a REG_DWORD, signed. Gives 0, -1 for a value of another type,
/// or the code of the failure; `vValue` is changed for 0 alone.
std::int32_t nGetValueAny(RegistryKey& hKey, const std::string& sValueName, ReportValue& vValue);

/// A value of the machine's key below `Software\Zorvo\`, as text; empty when it can't be read.
std::string sGetHklmValue(const std::string& sSubKey, const std::string& sValueName);

} // namespace zorvo
