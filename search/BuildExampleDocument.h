#pragma once

#include <cstdint>
#include <string>

/// The document that a search ends in: new, unsaved, left open for the user.
namespace zorvo {

/// Inserts the found files of `searchState()` one after the other into a new document made from the chosen
/// edition's template. Failures are told to the user here and end it.
void BuildExampleDocument();

/// Opens a new document made from the master of all examples and cuts out every example without the keyword.
/// `sFolder` is the edition's folder, `nSelected` its index in the tables. Nothing happens when the master
/// isn't there. Throws RunTimeError when Word fails.
void FilterMasterDocument(const std::string& sFolder, const std::string& sKeyword, std::int16_t nSelected);

} // namespace zorvo
