#pragma once

#include <string>

/// One session: what a client's show request begins and what it leaves behind for a partner's suite.
namespace zorvo {

/// Begins a session: the answer of an earlier one goes, so that it can never be read as this one's.
void InitSession(bool bDFS);

/// Path of the hand-over file, in the backslash form. Built at the first call and kept; its folder is made
/// then.
std::string sDFSMarkerPath();

/// Trims `sText` and, unless it is then empty, replaces the hand-over file by it: one line in double quotes.
/// The quotes are the line's own, so that a double quote in the text becomes "|". Throws RunTimeError when
/// the file can't be written.
void WriteDFSResult(std::string& sText);

} // namespace zorvo
