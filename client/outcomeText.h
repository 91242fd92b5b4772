#pragma once

#include "client/DocumentMaker.h"

#include <string>
#include <vector>

namespace zorvo {

/// "Title -> file" or "Title -> FAILED: reason".
std::string outcomeLine(const DocumentOutcome& outcome);

/// The last line of a run: "12 documents: 10 created, 2 failed", and how many have no profile data though it
/// was given.
std::string summaryLine(const std::vector<DocumentOutcome>& outcomes);

/// One JSON object: `folder` (native), `documents` (title, template, status "created" or "failed", file or
/// reason, and `profile`, true or false, when profile data was given) and `summary` (documents, created,
/// failed).
std::string outcomeJson(const std::vector<DocumentOutcome>& outcomes, const std::string& sNativeFolder);

} // namespace zorvo
