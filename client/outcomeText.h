#pragma once

#include "client/DocumentMaker.h"

#include <string>
#include <vector>

namespace zorvo {

/// "Title -> file" or "Title -> FAILED: reason".
std::string outcomeLine(const DocumentOutcome& outcome);

/// One JSON object: `folder` (native), `documents` (title, template, status "created" or "failed", file or
/// reason) and `summary` (documents, created, failed).
std::string outcomeJson(const std::vector<DocumentOutcome>& outcomes, const std::string& sNativeFolder);

} // namespace zorvo
