#pragma once

#include <string>

/// The plain-text report for the help desk: who the program is, then the error log.
namespace zorvo {

/// Path of the report in the backslash form; its folder is made.
std::string sSupportReportPath();

/// Writes the report over the last one. Throws RunTimeError 62 for an empty log, others when a file can't be
/// read or written; what was written by then stays.
void WriteSupportReport();

/// Starts the platform's information viewer, which the registry names. Without an entry nothing is started.
void StartInformationViewer();

} // namespace zorvo
