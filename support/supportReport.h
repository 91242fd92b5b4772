#pragma once

#include <string>

/// The plain-text report for the help desk: who the program is, then the error log.
namespace zorvo {

/// Writes the report over the last one, making its folder, and gives its path in the backslash form. Throws
/// RunTimeError 62 for an empty log, others when a file can't be read or written; what was written by then
/// stays.
std::string WriteSupportReport();

/// Starts the platform's information viewer, which the registry names. Without an entry nothing is started.
/// Throws RunTimeError 5 for an entry with nothing in front of its argument, 53 when there is no such
/// program.
void StartInformationViewer();

} // namespace zorvo
