#pragma once

#include <cstdint>
#include <string>

/// Which copy of the tree order document rules this machine.
namespace zorvo {

/// The full path of the tree order file to use. With a tree order server on the machine its text is saved in
/// the temporary folder and that file is named; otherwise the newest of the program's own copy and those of
/// the installed products. It may name a file that doesn't exist. Throws RunTimeError when the server can't
/// be called, the copy can't be saved, or a copy has no `Version`.
std::string sGetTreeOrderXML();

/// The edition of the copy in a folder; -1 when there is none that can be read or its `Version` is no number.
/// Throws RunTimeError 91 when the root has no `Version`.
std::int32_t nTreeOrderVersion(const std::string& sFolder);

} // namespace zorvo
