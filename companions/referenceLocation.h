#pragma once

#include "platform/Files.h"
#include "platform/Registry.h"

#include <optional>
#include <string>

namespace zorvo {

/// The folder of the user's reference material, in the backslash form; empty while none was chosen.
std::string storedReferenceLocation(Registry& registry);
/// Throws RunTimeError 75 when it can't be kept.
void storeReferenceLocation(Registry& registry, const std::string& sFolder);

/// Asks for the folder in a dialog and keeps the answer; a dialog that is cancelled changes nothing. Needs a
/// QApplication.
void chooseReferenceLocation(Registry& registry, Files& files);

} // namespace zorvo
