#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace zorvo {

/// `brendle setting ...`: `args` is what stands behind "setting". Works on the stored keys, company prefix
/// included, of the section "Settings" of ZorvoBrendle. 0 when done, 1 with one line on `err` when the call
/// failed or the key of `get` is absent, 2 for wrong usage.
///
///     list            "key=value" of each, by key
///     get KEY
///     set KEY DATA
int runSettingCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

} // namespace zorvo
