#pragma once

#include <string>

/// The publisher's library that carries the tree order document in itself.
namespace zorvo {

/// The server's file lies in the program folder, which is given with its backslash.
bool bHasTreeOrderServer(const std::string& sZorvoPath);

/// The document's text. It is the server's whole buffer: no terminator is looked for. Throws RunTimeError 53
/// when the file can't be loaded as a library, 5 when it lacks a function or names a negative length.
std::string sTreeOrderFromServer(const std::string& sZorvoPath);

} // namespace zorvo
