#pragma once

#include <cstdint>
#include <string>

/// The result of a search: one new document that holds the examples, left open for the user and unsaved.
namespace zorvo {

/// A document from the template of the chosen edition, with the found files of `searchState()` inserted one
/// after the other. Never throws RunTimeError: the user is told what went wrong.
void BuildExampleDocument();

/// A document from the master that holds every example of an edition, without the tables in whose text
/// `sKeyword` doesn't occur. `sFolder` is the edition's folder without a closing backslash: the master lies
/// beside it, under a name that begins as the folder's does. Without a master nothing happens.
/// Throws RunTimeError: what Word raises, and 9 for an edition that the tables don't hold.
void FilterMasterDocument(const std::string& sFolder, const std::string& sKeyword, std::int16_t nSelected);

} // namespace zorvo
