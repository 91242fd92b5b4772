#pragma once

#include <string>

namespace zorvo {

/// Appends one line to the error log: company, date, time, text. Date and time are in the locale's forms. The
/// log's folder is made when missing. Every failure is ignored, and the pending failure's number stays as it
/// was.
void WriteErrorLine(const std::string& sLine);

} // namespace zorvo
