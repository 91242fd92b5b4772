#pragma once

#include "platform/linux/RegistryChange.h"

#include <string_view>
#include <vector>

/// The registry editor's text format.
///
///     Windows Registry Editor Version 5.00        or REGEDIT4
///
///     ; a comment
///     [HKEY_CURRENT_USER\Software\Name]           makes the key
///     @="default value"
///     "a \"name\""="C:\\folder"                   only \\ and \" stand for something
///     "count"=dword:0000002a
///     "bytes"=hex:01,02,\                         goes on in the next line
///       03
///     "list"=hex(7):61,00,00,00,00,00             any type by its number; texts are UTF-16, in REGEDIT4 ANSI
///     "old"=-                                     deletes the value
///     [-HKEY_CURRENT_USER\Software\Old]           deletes the key with all below it
namespace zorvo {

/// The first line of the newer form.
constexpr std::string_view kRegistryTextHeader = "Windows Registry Editor Version 5.00";

/// The changes that the text stands for, in its order. UTF-16 with or without a byte order mark, UTF-8, and
/// for REGEDIT4 also windows-1252. Throws RunTimeError 5 whose description is "line 12: what is wrong there".
std::vector<RegistryChange> parseRegistryText(std::string_view bytes);

} // namespace zorvo
