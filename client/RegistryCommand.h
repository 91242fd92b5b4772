#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace zorvo {

/// `brendle registry ...`: `args` is what stands behind "registry". 0 when done, 1 with one line on `err`
/// when the call failed, 2 for wrong usage. Files are native paths.
///
///     import FILE.reg            all or nothing; a damaged file is told with its line
///     export KEY [FILE.reg]      UTF-16 to a file, UTF-8 to `out`
///     list KEY                   sub-keys with a backslash behind them, then "name<tab>type<tab>data" of
///     each
///                                value, the default value as "@"
///     get KEY [VALUE]            the data (registryData.h); without VALUE the default value
///     set KEY VALUE DATA [--type REG_SZ|...]   the empty VALUE is the default value
///     delete KEY [VALUE]         without VALUE the key with all below it
int runRegistryCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

} // namespace zorvo
