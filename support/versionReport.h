#pragma once

#include <cstdint>
#include <string>

/// The page that lists each installed product with the version of its newest year, made from the machine's
/// registry alone.
namespace zorvo {

/// Writes the page over the last one in the temporary folder and opens it, maximised, with what the user's
/// desktop has for pages. Throws RunTimeError when it can't be written; one that can't be opened gives no
/// message. `ownerWindow` is the native handle of the main window.
void ShowVersionReport(std::uintptr_t ownerWindow);

/// The rows of "Quillbook" or "Tessora", by title. One row that says so when the family has no product to
/// show, and nothing at all when the machine has no such family.
std::string sGetFamilyRows(const std::string& sFamily);

} // namespace zorvo
