#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zorvo {

/// Result of `nGetNestedKeyValues` when its starting key can't be opened.
constexpr std::int32_t kStartingKeyNotOpened = -1;

/// Walks the keys below `pKey` ("HIVE\path"), depth first in the store's order, and reads the value
/// `sStringValueKey` of each key named exactly `sSearchKey`. A key found by its name isn't descended into;
/// the starting key itself isn't tested.
///
/// The texts found are added behind `nRetCount`: each adds 1 to it and is stored there, so that entry 0 stays
/// unused, a second call goes on where the first stopped, and the array ends at `nRetCount`.
///
/// Gives 259 when the walk ran and -1 when `pKey` couldn't be opened. Throws RunTimeError 5 for a `pKey`
/// without a backslash, 9 when `nRetCount` leads outside of what an array can hold.
std::int32_t nGetNestedKeyValues(const std::string& pKey, const std::string& sSearchKey,
                                 const std::string& sStringValueKey, std::vector<std::string>& sRetValue,
                                 std::int32_t& nRetCount);

} // namespace zorvo
